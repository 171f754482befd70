// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/wayland/wayland_backdrops.h"

#include "platform/linux/wayland/wayland_connection.h"

namespace tessel {

WaylandBackdrops::WaylandBackdrops(WaylandConnection& connection) : m_connection(connection)
{
    connect(&connection, &WaylandConnection::outputsChanged, this, &WaylandBackdrops::followOutputs);
    connect(&connection, &WaylandConnection::outputRemoved, this, &WaylandBackdrops::followOutputs);
}

std::shared_ptr<WaylandBackdrop> WaylandBackdrops::of(const QString& name)
{
    std::shared_ptr<WaylandBackdrop>& backdrop = m_backdrops[name];
    if (backdrop == nullptr) {
        backdrop = std::make_shared<WaylandBackdrop>(m_connection);
        backdrop->setOutput(m_connection.output(name));
    }
    return backdrop;
}

void WaylandBackdrops::followOutputs()
{
    for (const auto& [name, backdrop] : m_backdrops)
        backdrop->setOutput(m_connection.output(name));
}

} // namespace tessel
