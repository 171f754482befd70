// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/wayland/wayland_screens.h"

#include "platform/linux/wayland/wayland_connection.h"

namespace tessel {

WaylandScreens::WaylandScreens(WaylandConnection& connection) : m_connection(connection)
{
    connect(&connection, &WaylandConnection::outputsChanged, this, &WaylandScreens::noteChange);
    connect(&connection, &WaylandConnection::outputRemoved, this, &WaylandScreens::noteChange);
}

std::vector<Screen> WaylandScreens::list() const
{
    std::vector<Screen> screens;
    for (const auto& output : m_connection.outputs()) {
        screens.push_back(output->screen());
        const QRect frame = screens.back().frame;
        screens.back().workArea = {frame.topLeft() / pointScale(), frame.size() / pointScale()};
    }
    if (!screens.empty())
        screens.front().isPrimary = true;
    return screens;
}

} // namespace tessel
