// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/desktops/picture_backend.h"
#include "platform/linux/plain_window_system.h"
#include "platform/linux/wayland/wayland_window_system.h"
#include "platform/linux/x11/x11_window_system.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace tessel {

namespace {

/// Whether one pixel of the X server for old programs is one of each monitor's. At scales of which it knows
/// nothing the compositor magnifies what is drawn there.
bool hasPixelsOfMonitors(const X11Connection& server, const WaylandConnection& compositor)
{
    if (!server.isValid())
        return false;
    QRect points;
    for (const auto& output : compositor.outputs())
        points |= output->screen().frame;
    const double pixelsOfPoint = static_cast<double>(server.screen().width_in_pixels) / points.width();
    constexpr double rounding = 0.01;
    return std::ranges::all_of(compositor.outputs(), [&](const auto& output) {
        return std::abs(output->screen().scale - pixelsOfPoint) < rounding;
    });
}

} // namespace

QByteArray preferredQtPlatforms()
{
    // What is no desktop would put a window for a wallpaper among all others.
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || !qEnvironmentVariableIsSet("DISPLAY") ||
        !qEnvironmentVariableIsSet("WAYLAND_DISPLAY") || !isSessionOfDesktop())
        return {};
    std::string name = "tessel-broth";
    std::array arguments{name.data(), static_cast<char*>(nullptr)};
    int count = 1;
    const QCoreApplication forEvents(count, arguments.data());
    const auto compositor = WaylandConnection::open();
    if (compositor == nullptr || compositor->hasLayers())
        return {};
    return hasPixelsOfMonitors(X11Connection(), *compositor) ? "xcb;wayland" : "wayland;xcb";
}

std::unique_ptr<WindowSystem> makeWindowSystem()
{
    if (auto connection = WaylandConnection::open(); connection != nullptr && connection->hasLayers())
        return std::make_unique<WaylandWindowSystem>(std::move(connection));
    if (QGuiApplication::platformName() == QStringLiteral("xcb"))
        return std::make_unique<X11WindowSystem>();
    return std::make_unique<PlainWindowSystem>();
}

} // namespace tessel
