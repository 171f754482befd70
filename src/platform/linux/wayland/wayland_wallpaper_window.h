// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/frame_pause.h"
#include "platform/linux/wayland/wayland_canvas.h"
#include "platform/wallpaper_window.h"

#include <memory>
#include <variant>

namespace tessel {

enum class Rasterizer : std::uint8_t;

/// What plays on one output's backdrop. The compositor sets the pace: it is asked when a frame is wanted, and
/// does not answer while nobody would see one.
class WaylandWallpaperWindow final : public WallpaperWindow
{
    Q_OBJECT

public:
    /// \param sharedMemory must outlive this
    WaylandWallpaperWindow(std::shared_ptr<WaylandBackdrop> backdrop, wl_shm* sharedMemory, QSize pixels,
                           Rasterizer rasterizer);
    ~WaylandWallpaperWindow() override;

    [[nodiscard]] QSize pixelSize() const override { return m_size; }
    [[nodiscard]] Canvas canvas() override;
    void setFrameRate(int framesPerSecond) override;
    void show() override;
    void hide() override;

private:
    void release();
    void waitForNext();
    void drawNext();

    using OwnedCanvas = std::variant<std::unique_ptr<WaylandGpuCanvas>, std::unique_ptr<WaylandPixelCanvas>>;

    const std::shared_ptr<WaylandBackdrop> m_backdrop;
    const QSize m_size;
    const OwnedCanvas m_canvas;
    FramePause m_pause;
    int m_framesPerSecond = 0;
    bool m_isShown = false;
};

} // namespace tessel
