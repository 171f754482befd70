// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/passthrough_view.h"

#include "render/stopwatch.h"

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

namespace tessel {

namespace {

/// The share of the time that frames may take from what else is to be done, such as to open a menu.
constexpr double longestShare = 0.5;

} // namespace

PassthroughView::PassthroughView(LiveSurface& surface, Scene& scene, Graphics& graphics, float reference)
    : m_surface(surface)
    , m_scene(scene)
    , m_graphics(graphics)
    , m_reference(reference)
{
    connect(&m_surface, &LiveSurface::frameDue, this, &PassthroughView::draw);
    connect(&m_surface, &LiveSurface::contentLost, this, [this] {
        m_painter.invalidate();
        draw();
    });
    connect(&m_scene, &Scene::changed, this, [this] {
        m_budget.restart();
        if (!m_stopped)
            draw();
    });
    connect(&m_graphics, &Graphics::renewed, this, &PassthroughView::releaseObjects);
}

PassthroughView::~PassthroughView()
{
    // What is left of a context that is gone needs no release.
    static_cast<void>(m_graphics.context().makeCurrent());
}

void PassthroughView::setPaused(bool paused)
{
    if (paused == m_stopped)
        return;
    m_stopped = paused;
    if (paused)
        m_surface.setFrameRate(0);
    else
        draw();
}

void PassthroughView::restart()
{
    if (m_stopped)
        return;
    m_surface.setFrameRate(0);
    draw();
}

void PassthroughView::draw()
{
    try {
        std::visit([this](auto* canvas) { drawOn(*canvas); }, m_surface.canvas());
        updateRate();
    } catch (const std::exception& error) {
        m_scene.giveUp(QString::fromUtf8(error.what()));
        m_surface.setFrameRate(0);
    }
}

void PassthroughView::updateRate()
{
    if (m_stopped)
        return;
    const auto bearable = static_cast<int>(1000.0 * longestShare / std::max(m_frameMilliseconds, 1.0));
    const int ceiling = std::min(m_governor.ceiling(), m_budget.ceiling());
    m_surface.setFrameRate(std::min(m_scene.framesPerSecond(ceiling, mediaTime()), std::max(bearable, 1)));
}

Frame PassthroughView::nextFrame()
{
    const double now = mediaTime();
    m_scene.advance(now);
    return m_scene.frame(size(), now);
}

void PassthroughView::drawOn(GpuCanvas& canvas)
{
    if (!canvas.makeCurrent(m_graphics.context())) {
        // The window is not there yet, or the context is lost: then it is made anew for the next frame.
        m_graphics.makeCurrent();
        return;
    }
    const bool measured = m_governor.countFrame();
    if (measured)
        m_gpuTimer.begin();
    m_graphics.encoder().encode(nextFrame(), {.framebuffer = 0, .rows = RowOrder::bottomFirst});
    if (measured)
        m_gpuTimer.end();
    canvas.present(m_graphics.context());
    if (const auto milliseconds = m_gpuTimer.take())
        m_governor.addSample(*milliseconds);
}

void PassthroughView::drawOn(PixelCanvas& canvas)
{
    if (!canvas.isReady())
        return;
    m_graphics.makeCurrent();
    const Frame frame = nextFrame();
    const double begin = threadMilliseconds();
    Stopwatch watch;
    if (m_painter.paint(m_graphics.encoder(), frame, canvas))
        m_buffer = {};
    else
        drawPixels(frame, canvas);
    m_frameMilliseconds = watch.lap();
    // A cross-fade is dear but short, and another look comes after it.
    if (frame.mix < 1.0F)
        m_budget.restart();
    else
        m_budget.addFrame(threadMilliseconds() - begin);
}

void PassthroughView::drawPixels(const Frame& frame, PixelCanvas& canvas)
{
    if (!m_buffer.framebuffer) {
        m_buffer.texture = makeTexture(colorFormat, frame.width, frame.height);
        m_buffer.framebuffer = makeFramebuffer(m_buffer.texture);
    }
    m_graphics.encoder().encode(frame, {.framebuffer = m_buffer.framebuffer.name()});
    readColors(m_buffer.framebuffer, frame.width, frame.height, canvas.pixels());
    canvas.presentPixels(std::array{
        PixelRect{0, 0, static_cast<std::uint16_t>(frame.width), static_cast<std::uint16_t>(frame.height)}});
    m_painter.invalidate();
}

void PassthroughView::releaseObjects()
{
    m_buffer = {};
    m_gpuTimer = {};
}

} // namespace tessel
