// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/wayland/wayland_screens.h"

#include "platform/linux/wayland/wayland_connection.h"

#include <chrono>

namespace tessel {

namespace {

/// Within a burst of changes.
constexpr std::chrono::milliseconds longestPause{150};

} // namespace

WaylandScreens::WaylandScreens(WaylandConnection& connection) : m_connection(connection)
{
    m_burst.setSingleShot(true);
    m_burst.setInterval(longestPause);
    connect(&m_burst, &QTimer::timeout, this, &Screens::changed);
    connect(&connection, &WaylandConnection::outputsChanged, this, [this] { m_burst.start(); });
    connect(&connection, &WaylandConnection::outputRemoved, this, [this] { m_burst.start(); });
}

std::vector<Screen> WaylandScreens::list() const
{
    std::vector<Screen> screens;
    for (const auto& output : m_connection.outputs())
        screens.push_back(output->screen());
    if (!screens.empty())
        screens.front().isPrimary = true;
    return screens;
}

} // namespace tessel
