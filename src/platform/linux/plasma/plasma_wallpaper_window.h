// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/file_descriptor.h"
#include "platform/linux/frame_pause.h"
#include "platform/linux/shared_pixels.h"
#include "platform/screens.h"
#include "platform/wallpaper_window.h"

#include <QSocketNotifier>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

namespace tessel {

class PlasmaFrames;

/// What plays on one of Plasma's desktops, as its wallpaper: Plasma itself shows it, below its icons. It
/// tells when a frame has been shown, and nothing while nobody would see one.
class PlasmaWallpaperWindow final : public WallpaperWindow, public PixelCanvas
{
    Q_OBJECT

public:
    /// \param frames must outlive this
    /// \param refreshSeconds between two pictures of the screen; 0 while it is gone
    PlasmaWallpaperWindow(PlasmaFrames& frames, Screen screen, std::function<double()> refreshSeconds);
    ~PlasmaWallpaperWindow() override;

    /// Whoever had the frames has them no longer.
    /// \return what tells what has changed, or a closed one; the frames' memory is there then
    [[nodiscard]] FileDescriptor open();
    [[nodiscard]] const SharedPixels* sharedPixels() const { return m_pixels.get(); }

    [[nodiscard]] QSize pixelSize() const override { return m_screen.pixels().size(); }
    [[nodiscard]] Canvas canvas() override { return static_cast<PixelCanvas*>(this); }
    void setFrameRate(int framesPerSecond) override;
    void show() override;
    void hide() override;

    [[nodiscard]] bool isReady() const override { return m_socket.isOpen() && !m_isOnItsWay; }
    [[nodiscard]] std::uint32_t* pixels() override { return m_pixels->get().data(); }
    void presentPixels(std::span<const PixelRect> changed) override;
    /// Does nothing: this memory is what is shown.
    void releasePixels() override {}
    void present(std::span<const ColoredRect> rectangles) override;

private:
    void close();
    void readAnswer();
    void waitForNext();
    void drawNext();

    PlasmaFrames& m_frames;
    const Screen m_screen;
    const std::function<double()> m_refreshSeconds;
    std::unique_ptr<SharedPixels> m_pixels;
    FileDescriptor m_socket;
    std::unique_ptr<QSocketNotifier> m_answers;
    std::vector<PixelRect> m_areas; ///< of rectangles
    QTimer m_opening;               ///< until whoever opens it has the answer, which drawing would hold up
    FramePause m_pause;
    int m_framesPerSecond = 0;
    bool m_isShown = false;
    bool m_isOnItsWay = false; ///< a frame, which Plasma has not shown yet
};

} // namespace tessel
