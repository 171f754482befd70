// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/wayland/wayland_window_system.h"

#include "platform/linux/desktops/picture_backend.h"
#include "platform/linux/plasma/plasma_wallpaper_window.h"
#include "platform/linux/wayland/wayland_gl_context.h"
#include "platform/linux/wayland/wayland_panel_window.h"
#include "platform/linux/wayland/wayland_pictures.h"
#include "platform/linux/wayland/wayland_wallpaper_window.h"
#include "platform/linux/window_pointer_feed.h"

#include <QDBusConnection>
#include <QGuiApplication>

#include <cstdlib>

namespace tessel {

WaylandWindowSystem::WaylandWindowSystem(std::unique_ptr<WaylandConnection> connection)
    : m_connection(std::move(connection))
    , m_isDesktopDrawn(isSessionOfDesktop())
{
    if (QGuiApplication::platformName() == QStringLiteral("xcb"))
        m_x11 = std::make_unique<X11WindowSystem>();
    if (m_isDesktopDrawn && hasPlasmaWallpaper())
        m_plasma = std::make_unique<PlasmaFrames>(QDBusConnection::sessionBus());
    // An end that nobody has asked for, as Qt's own, so that a service that is to start anew after one does.
    QObject::connect(m_connection.get(), &WaylandConnection::lost, qGuiApp,
                     [] { QCoreApplication::exit(EXIT_FAILURE); });
}

std::unique_ptr<GlContext> WaylandWindowSystem::makeContext()
{
    return std::make_unique<WaylandGlContext>(m_connection->display());
}

std::unique_ptr<WallpaperWindow> WaylandWindowSystem::makeWallpaperWindow(const Screen& screen,
                                                                          Rasterizer rasterizer)
{
    if (m_plasma != nullptr)
        return std::make_unique<PlasmaWallpaperWindow>(*m_plasma, screen, [this, name = screen.name] {
            const auto output = m_connection->output(name);
            return output == nullptr ? 0 : output->refreshSeconds();
        });
    if (m_isDesktopDrawn)
        return nullptr;
    return std::make_unique<WaylandWallpaperWindow>(m_backdrops.of(screen.name), m_connection->sharedMemory(),
                                                    screen.pixels().size(), rasterizer);
}

std::unique_ptr<DesktopPictures> WaylandWindowSystem::makePictures()
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (m_isDesktopDrawn)
        return makeDesktopPictures(bus);
    return makeDesktopPictures(bus, [this] { return std::make_unique<WaylandPictures>(m_backdrops); });
}

bool WaylandWindowSystem::hasPanelWindows() const
{
    return m_x11 != nullptr || QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
}

std::unique_ptr<PanelWindow> WaylandWindowSystem::makePanelWindow(QWindow& window)
{
    if (m_x11 != nullptr)
        return m_x11->makePanelWindow(window);
    return WaylandPanelWindow::make(window);
}

std::unique_ptr<PointerFeed> WaylandWindowSystem::makePointerFeed(QWindow& window)
{
    if (m_x11 != nullptr)
        return m_x11->makePointerFeed(window);
    return std::make_unique<WindowPointerFeed>(window);
}

void WaylandWindowSystem::setTextScale(double text, double font)
{
    m_screens.setPointScale(m_x11 == nullptr ? text * font : font);
}

Focus* WaylandWindowSystem::focus()
{
    return m_x11 != nullptr ? m_x11->focus() : nullptr;
}

} // namespace tessel
