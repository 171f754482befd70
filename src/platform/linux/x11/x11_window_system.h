// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/x11/x11_connection.h"
#include "platform/linux/x11/x11_focus.h"
#include "platform/linux/x11/x11_occlusion.h"
#include "platform/linux/x11/x11_screen_power.h"
#include "platform/linux/x11/x11_screens.h"
#include "platform/window_system.h"

#include <QPointer>

namespace tessel {

class X11WallpaperWindow;

/// An X server and its window manager, spoken to over one connection of our own beside Qt's.
class X11WindowSystem final : public WindowSystem
{
public:
    [[nodiscard]] std::unique_ptr<GlContext> makeContext() override;
    [[nodiscard]] Screens& screens() override { return m_screens; }
    [[nodiscard]] bool hasWallpaperWindows() const override { return true; }
    [[nodiscard]] std::unique_ptr<WallpaperWindow> makeWallpaperWindow(const Screen& screen,
                                                                       Rasterizer rasterizer) override;
    void leaveIconsFree(const std::vector<DesktopPicture>& pictures) override;
    [[nodiscard]] std::unique_ptr<DesktopPictures> makePictures() override;
    [[nodiscard]] bool hasPanelWindows() const override { return true; }
    [[nodiscard]] std::unique_ptr<PanelWindow> makePanelWindow(QWindow& window) override;
    [[nodiscard]] std::unique_ptr<PointerFeed> makePointerFeed(QWindow& window) override;
    [[nodiscard]] Focus* focus() override;
    /// Of larger text the server tells by a higher resolution, which Qt follows.
    void setTextScale(double /*text*/, double font) override { m_screens.setPointScale(font); }

private:
    X11Connection m_connection;
    X11Events m_events{m_connection};
    X11Screens m_screens{m_connection};
    X11Occlusion m_occlusion{m_connection, m_events};
    X11ScreenPower m_power{m_connection, m_events};
    X11Focus m_focus{m_connection};
    std::vector<DesktopPicture> m_pictures;
    std::vector<std::pair<Screen, QPointer<X11WallpaperWindow>>> m_windows; ///< some of which may be gone
};

} // namespace tessel
