// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/screens.h"
#include "platform/wallpaper_window.h"
#include "render/gpu_timer.h"
#include "render/graphics.h"
#include "scene/frame_pacing.h"
#include "scene/scene.h"
#include "wallpaper/cell_painter.h"

#include <QObject>

#include <memory>

namespace tessel {

/// The desktop on one screen, drawn live: a window that lets every click through, drawn whenever it asks for
/// a frame, at a rate that follows its look and its load. Paused it does nothing at all.
class PassthroughView : public QObject
{
    Q_OBJECT

public:
    /// Starts paused and hidden. The scene and graphics must outlive it.
    PassthroughView(Screen screen, std::unique_ptr<WallpaperWindow> window, Scene& scene, Graphics& graphics);
    ~PassthroughView() override;

    [[nodiscard]] const Screen& screen() const { return m_screen; }
    [[nodiscard]] ViewSize size() const { return {m_window->pixelSize()}; }

    void show() { m_window->show(); }
    void hide() { m_window->hide(); }

    void setPaused(bool paused);

    /// Draws at once and asks for frames anew, as after a sleep that may have stopped them.
    void restart();

private:
    void draw();
    void drawOn(GpuCanvas& canvas);
    void drawOn(PixelCanvas& canvas);
    void drawPixels(const Frame& frame, PixelCanvas& canvas);
    [[nodiscard]] Frame nextFrame();
    void updateRate();
    void releaseObjects();

    /// What is drawn by the processor before it goes to the window; there only while it is needed.
    struct Buffer
    {
        GlTexture texture;
        GlFramebuffer framebuffer;
    };

    const Screen m_screen;
    std::unique_ptr<WallpaperWindow> m_window;
    Scene& m_scene;
    Graphics& m_graphics;
    CellPainter m_cells;
    Buffer m_buffer;
    LoadGovernor m_governor;
    GpuTimer m_gpuTimer;
    bool m_stopped = true;
};

} // namespace tessel
