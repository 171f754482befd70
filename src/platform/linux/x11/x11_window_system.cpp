// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_window_system.h"

#include "platform/linux/desktops/picture_backend.h"
#include "platform/linux/qt_gl_context.h"
#include "platform/linux/x11/x11_panel_window.h"
#include "platform/linux/x11/x11_pointer_feed.h"
#include "platform/linux/x11/x11_wallpaper_window.h"

#include <QDBusConnection>

#include <algorithm>

namespace tessel {

namespace {

/// The file for a screen; empty if there is none.
QString fileFor(const Screen& screen, const std::vector<DesktopPicture>& pictures)
{
    const auto found = std::ranges::find_if(
        pictures, [&](const DesktopPicture& picture) { return picture.screen.isSamePlace(screen); });
    return found == pictures.end() ? QString() : found->file;
}

} // namespace

std::unique_ptr<GlContext> X11WindowSystem::makeContext()
{
    return std::make_unique<QtGlContext>();
}

std::unique_ptr<WallpaperWindow> X11WindowSystem::makeWallpaperWindow(const Screen& screen,
                                                                      Rasterizer rasterizer)
{
    std::unique_ptr<X11WallpaperWindow> window =
        makeX11WallpaperWindow(screen, rasterizer, {m_connection, m_events, m_occlusion, m_power});
    if (window == nullptr)
        return nullptr;
    std::erase_if(m_windows, [](const auto& known) { return known.second.isNull(); });
    m_windows.emplace_back(screen, window.get());
    window->setPictureBehind(fileFor(screen, m_pictures));
    return window;
}

void X11WindowSystem::leaveIconsFree(const std::vector<DesktopPicture>& pictures)
{
    m_pictures = pictures;
    for (const auto& [screen, window] : m_windows)
        if (window != nullptr)
            window->setPictureBehind(fileFor(screen, m_pictures));
}

std::unique_ptr<DesktopPictures> X11WindowSystem::makePictures()
{
    return makeDesktopPictures(QDBusConnection::sessionBus());
}

std::unique_ptr<PanelWindow> X11WindowSystem::makePanelWindow(QWindow& window)
{
    if (!m_connection.isValid())
        return nullptr;
    return std::make_unique<X11PanelWindow>(m_connection, m_events, m_focus, m_occlusion, window);
}

std::unique_ptr<PointerFeed> X11WindowSystem::makePointerFeed(QWindow& window)
{
    if (!m_connection.isValid())
        return nullptr;
    return std::make_unique<X11PointerFeed>(m_connection, m_events, window);
}

Focus* X11WindowSystem::focus()
{
    return m_connection.isValid() ? &m_focus : nullptr;
}

} // namespace tessel
