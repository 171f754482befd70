// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/canvas.h"
#include "render/gpu_timer.h"
#include "render/graphics.h"
#include "scene/frame_pacing.h"
#include "scene/scene.h"
#include "wallpaper/frame_painter.h"

#include <QObject>

namespace tessel {

/// A scene drawn live on a surface whenever that asks for a frame, at a rate that follows its look and its
/// load. Paused it does nothing at all.
class PassthroughView : public QObject
{
    Q_OBJECT

public:
    /// Starts paused. All that is given must outlive it.
    /// \param reference of cellSize()
    PassthroughView(LiveSurface& surface, Scene& scene, Graphics& graphics,
                    float reference = desktopReference);
    ~PassthroughView() override;

    [[nodiscard]] ViewSize size() const { return {m_surface.pixelSize(), m_reference}; }

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

    LiveSurface& m_surface;
    Scene& m_scene;
    Graphics& m_graphics;
    const float m_reference;
    FramePainter m_painter;
    Buffer m_buffer;
    LoadGovernor m_governor;          ///< of what a GPU draws
    ProcessorBudget m_budget;         ///< of what the processor does
    double m_frameMilliseconds = 0.0; ///< of the last frame, in which nothing else could be done
    GpuTimer m_gpuTimer;
    bool m_stopped = true;
};

} // namespace tessel
