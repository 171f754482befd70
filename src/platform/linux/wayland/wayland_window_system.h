// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/plasma/plasma_frames.h"
#include "platform/linux/wayland/wayland_backdrops.h"
#include "platform/linux/wayland/wayland_connection.h"
#include "platform/linux/wayland/wayland_menus.h"
#include "platform/linux/wayland/wayland_screens.h"
#include "platform/linux/x11/x11_window_system.h"
#include "platform/window_system.h"

#include <memory>

namespace tessel {

/// A Wayland compositor that lets us stand below and above windows. Wallpapers are on a connection of our
/// own; the panel is a window of Qt's, which may be on the X server for old programs where Qt has no other
/// way.
class WaylandWindowSystem final : public WindowSystem
{
public:
    explicit WaylandWindowSystem(std::unique_ptr<WaylandConnection> connection);

    [[nodiscard]] std::unique_ptr<GlContext> makeContext() override;
    [[nodiscard]] Screens& screens() override { return m_screens; }
    [[nodiscard]] bool hasWallpaperWindows() const override
    {
        return !m_isDesktopDrawn || m_plasma != nullptr;
    }
    [[nodiscard]] std::unique_ptr<WallpaperWindow> makeWallpaperWindow(const Screen& screen,
                                                                       Rasterizer rasterizer) override;
    /// There are none where our windows are.
    void leaveIconsFree(const std::vector<DesktopPicture>& /*pictures*/) override {}
    [[nodiscard]] std::unique_ptr<DesktopPictures> makePictures() override;
    [[nodiscard]] bool hasPanelWindows() const override;
    [[nodiscard]] std::unique_ptr<PanelWindow> makePanelWindow(QWindow& window) override;
    [[nodiscard]] std::unique_ptr<PointerFeed> makePointerFeed(QWindow& window) override;
    [[nodiscard]] Focus* focus() override;
    void setTextScale(double text, double font) override;

private:
    const std::unique_ptr<WaylandConnection> m_connection;
    WaylandScreens m_screens{*m_connection};
    WaylandBackdrops m_backdrops{*m_connection};
    WaylandMenus m_menus;
    std::unique_ptr<X11WindowSystem> m_x11; ///< nullptr where Qt's windows are on Wayland
    /// Whether a desktop draws its own background and icons, which our windows would hide.
    const bool m_isDesktopDrawn;
    std::unique_ptr<PlasmaFrames> m_plasma; ///< nullptr where Plasma does not show what plays
};

} // namespace tessel
