// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/passthrough_view.h"

#include "render/stopwatch.h"

namespace tessel {

PassthroughView::PassthroughView(const Screen& screen, std::unique_ptr<DesktopWindow> window,
                                 DesktopScene& scene, FrameEncoder& encoder, Rasterizer rasterizer)
    : m_screen(screen)
    , m_window(std::move(window))
    , m_scene(scene)
    , m_encoder(encoder)
    , m_rasterizer(rasterizer)
{
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &PassthroughView::draw);
    connect(&m_scene, &DesktopScene::changed, this, [this] {
        if (!m_stopped)
            draw();
    });
    connect(m_window.get(), &DesktopWindow::exposed, this, [this] {
        m_cells.invalidate();
        if (!m_holding)
            draw();
    });
}

void PassthroughView::setPaused(bool paused)
{
    if (paused == m_stopped)
        return;
    m_stopped = paused;
    synchronizeTimer();
    if (!paused)
        draw();
}

void PassthroughView::setHolding(bool holding)
{
    if (m_holding && !holding)
        m_cells.invalidate();
    m_holding = holding;
}

void PassthroughView::setPreferredFramesPerSecond(int rate)
{
    if (rate == m_rate)
        return;
    m_rate = rate;
    synchronizeTimer();
}

void PassthroughView::restart()
{
    if (m_stopped)
        return;
    synchronizeTimer();
    draw();
}

void PassthroughView::synchronizeTimer()
{
    if (m_stopped || m_rate == 0)
        m_timer.stop();
    else
        m_timer.start((1000 + m_rate - 1) / m_rate); // rather one frame too few than one too many
}

void PassthroughView::draw()
{
    if (!m_window->makeCurrent())
        return;
    const double now = mediaTime();
    m_scene.advance(now);
    paint(m_scene.frame(m_window->pixelSize(), now));
    setPreferredFramesPerSecond(m_scene.framesPerSecond(m_governor.ceiling(), now));
}

void PassthroughView::paint(const Frame& frame)
{
    const bool measured = m_governor.countFrame();
    if (m_rasterizer == Rasterizer::gpu) {
        drawOnGpu(frame, measured);
        return;
    }
    Stopwatch watch;
    if (CellPainter::canPaint(frame))
        paintCells(frame);
    else
        drawInSoftware(frame);
    if (measured)
        m_governor.addSample(watch.lap());
}

void PassthroughView::drawOnGpu(const Frame& frame, bool measured)
{
    if (measured)
        m_gpuTimer.begin();
    m_encoder.encode(frame, {.framebuffer = 0, .rows = RowOrder::bottomFirst});
    if (measured)
        m_gpuTimer.end();
    m_window->swap();
    if (const auto milliseconds = m_gpuTimer.take())
        m_governor.addSample(*milliseconds);
}

void PassthroughView::paintCells(const Frame& frame)
{
    m_canvas = {};
    m_window->releasePixels();
    m_cells.paint(m_encoder, frame, *m_window);
}

void PassthroughView::drawInSoftware(const Frame& frame)
{
    if (!m_canvas.framebuffer) {
        m_canvas.texture = makeTexture(colorFormat, frame.width, frame.height);
        m_canvas.framebuffer = makeFramebuffer(m_canvas.texture);
    }
    m_encoder.encode(frame, {.framebuffer = m_canvas.framebuffer.name()});
    glBindFramebuffer(GL_FRAMEBUFFER, m_canvas.framebuffer.name());
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glReadPixels(0, 0, frame.width, frame.height, GL_BGRA, GL_UNSIGNED_INT_8_8_8_8_REV, m_window->pixels());
    m_window->showPixels();
    m_cells.invalidate();
}

} // namespace tessel
