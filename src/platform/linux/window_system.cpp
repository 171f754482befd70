// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/plain_window_system.h"
#include "platform/linux/wayland/wayland_window_system.h"
#include "platform/linux/x11/x11_window_system.h"

#include <QGuiApplication>

namespace tessel {

std::unique_ptr<WindowSystem> makeWindowSystem()
{
    if (auto connection = WaylandConnection::open())
        return std::make_unique<WaylandWindowSystem>(std::move(connection));
    if (QGuiApplication::platformName() == QStringLiteral("xcb"))
        return std::make_unique<X11WindowSystem>();
    return std::make_unique<PlainWindowSystem>();
}

} // namespace tessel
