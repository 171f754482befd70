// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/qt_screens.h"
#include "platform/window_system.h"

namespace tessel {

/// A display server of which we know no more than Qt does: there are screens to make pictures for, and that
/// is all.
class PlainWindowSystem final : public WindowSystem
{
public:
    [[nodiscard]] std::unique_ptr<GlContext> makeContext() override;
    [[nodiscard]] Screens& screens() override { return m_screens; }
    [[nodiscard]] bool hasWallpaperWindows() const override { return false; }
    [[nodiscard]] std::unique_ptr<WallpaperWindow> makeWallpaperWindow(const Screen& /*screen*/,
                                                                       Rasterizer /*rasterizer*/) override
    {
        return nullptr;
    }
    void leaveIconsFree(const std::vector<DesktopPicture>& /*pictures*/) override {}
    [[nodiscard]] std::unique_ptr<DesktopPictures> makePictures() override;
    [[nodiscard]] bool hasPanelWindows() const override { return false; }
    [[nodiscard]] std::unique_ptr<PanelWindow> makePanelWindow(QWindow& /*window*/) override
    {
        return nullptr;
    }
    [[nodiscard]] std::unique_ptr<PointerFeed> makePointerFeed(QWindow& /*window*/) override
    {
        return nullptr;
    }
    [[nodiscard]] Focus* focus() override { return nullptr; }
    void setTextScale(double text, double font) override { m_screens.setPointScale(text * font); }

private:
    QtScreens m_screens{Layout::points};
};

} // namespace tessel
