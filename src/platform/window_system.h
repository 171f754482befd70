// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/gl_context.h"
#include "platform/desktop_pictures.h"
#include "platform/focus.h"
#include "platform/panel_window.h"
#include "platform/pointer_feed.h"
#include "platform/screens.h"
#include "platform/wallpaper_window.h"

#include <memory>

class QWindow;

namespace tessel {

/// The display server, as far as we have to do with it: everything that differs between one and another. It
/// must outlive what it makes.
class WindowSystem
{
public:
    virtual ~WindowSystem() = default;

    /// A context in which its windows can be drawn into.
    /// \throws ContextError
    [[nodiscard]] virtual std::unique_ptr<GlContext> makeContext() = 0;

    [[nodiscard]] virtual Screens& screens() = 0;

    /// Whether there are windows in which a wallpaper plays.
    [[nodiscard]] virtual bool hasWallpaperWindows() const = 0;

    /// nullptr where there are no such windows.
    [[nodiscard]] virtual std::unique_ptr<WallpaperWindow> makeWallpaperWindow(const Screen& screen,
                                                                               Rasterizer rasterizer) = 0;

    /// Tells which pictures the desktop shows, or is about to: what else it draws, icons above all, is left
    /// free by wallpaper windows from now on.
    virtual void leaveIconsFree(const std::vector<DesktopPicture>& pictures) = 0;

    /// What the desktop is given its pictures by. It looks which desktop runs.
    [[nodiscard]] virtual std::unique_ptr<DesktopPictures> makePictures() = 0;

    /// Whether there are windows that float.
    [[nodiscard]] virtual bool hasPanelWindows() const = 0;

    /// nullptr where there are no such windows.
    /// \param window not shown yet; must outlive what is returned
    [[nodiscard]] virtual std::unique_ptr<PanelWindow> makePanelWindow(QWindow& window) = 0;

    /// nullptr where nobody tells.
    /// \param window that of a panel; must outlive what is returned
    [[nodiscard]] virtual std::unique_ptr<PointerFeed> makePointerFeed(QWindow& window) = 0;

    /// nullptr where the window system decides about the focus alone.
    [[nodiscard]] virtual Focus* focus() = 0;

    /// Has the interface drawn so much larger than usual.
    /// \param text how much larger text is to be; left to the display server where that sees to it itself
    /// \param font how much larger the desktop's font is beside that
    virtual void setTextScale(double text, double font) = 0;
};

/// The plugins that Qt is to try, in the words of its option -platform; empty where it chooses well by
/// itself. To be asked for before the QGuiApplication is made.
[[nodiscard]] QByteArray preferredQtPlatforms();

/// The one that the program runs on; to be made once, after the QGuiApplication.
[[nodiscard]] std::unique_ptr<WindowSystem> makeWindowSystem();

} // namespace tessel
