// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/desktop_window.h"
#include "render/frame_pacing.h"
#include "render/gpu_timer.h"
#include "wallpaper/cell_painter.h"
#include "wallpaper/desktop_scene.h"

#include <QObject>
#include <QTimer>

#include <memory>

namespace tessel {

/// Whether frames are drawn by a GPU or by the processor, which is spared every pixel that it can be.
enum class Rasterizer : std::uint8_t
{
    gpu,
    software
};

/// The desktop on one screen, drawn live: a window that lets every click through, and the one timer that it
/// draws by, at a rate that follows its look and its load. Paused it does nothing at all.
class PassthroughView : public QObject
{
    Q_OBJECT

public:
    /// Starts paused and hidden. The scene and encoder must outlive it.
    PassthroughView(const Screen& screen, std::unique_ptr<DesktopWindow> window, DesktopScene& scene,
                    FrameEncoder& encoder, Rasterizer rasterizer);

    [[nodiscard]] const Screen& screen() const { return m_screen; }
    [[nodiscard]] DesktopWindow& window() { return *m_window; }

    [[nodiscard]] bool isPaused() const { return m_stopped; }
    void setPaused(bool paused);

    /// Whether the window shows its backdrop and nothing else, uncovered or not.
    void setHolding(bool holding);

    /// Frames per second; 0 draws only when the scene changes.
    [[nodiscard]] int preferredFramesPerSecond() const { return m_rate; }

    /// Draws at once and starts the timer anew, as after a sleep that may have stopped it.
    void restart();

private:
    void setPreferredFramesPerSecond(int rate);
    void synchronizeTimer();
    void draw();
    void paint(const Frame& frame);
    void drawOnGpu(const Frame& frame, bool measured);
    void paintCells(const Frame& frame);
    void drawInSoftware(const Frame& frame);

    /// What is drawn by the processor before it goes to the window; there only while it is needed.
    struct Canvas
    {
        GlTexture texture;
        GlFramebuffer framebuffer;
    };

    const Screen m_screen;
    std::unique_ptr<DesktopWindow> m_window;
    DesktopScene& m_scene;
    FrameEncoder& m_encoder;
    const Rasterizer m_rasterizer;
    CellPainter m_cells;
    Canvas m_canvas;
    LoadGovernor m_governor;
    GpuTimer m_gpuTimer;
    QTimer m_timer;
    int m_rate = 60;
    bool m_stopped = true;
    bool m_holding = false;
};

} // namespace tessel
