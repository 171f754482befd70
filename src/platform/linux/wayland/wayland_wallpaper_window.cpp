// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/wayland/wayland_wallpaper_window.h"

#include "base/gl_context.h"
#include "platform/linux/wayland/wayland_backdrop.h"

#include <utility>

namespace tessel {

WaylandWallpaperWindow::WaylandWallpaperWindow(std::shared_ptr<WaylandBackdrop> backdrop,
                                               wl_shm* sharedMemory, QSize pixels, Rasterizer rasterizer)
    : m_backdrop(std::move(backdrop))
    , m_size(pixels)
    , m_canvas(rasterizer == Rasterizer::gpu
                   ? OwnedCanvas(std::make_unique<WaylandGpuCanvas>(*m_backdrop, pixels))
                   : OwnedCanvas(std::make_unique<WaylandPixelCanvas>(*m_backdrop, sharedMemory, pixels)))
{
    connect(&m_pause, &QTimer::timeout, this, &WaylandWallpaperWindow::drawNext);
    connect(m_backdrop.get(), &WaylandBackdrop::ready, this, [this] {
        if (m_isShown)
            Q_EMIT contentLost();
    });
    connect(m_backdrop.get(), &WaylandBackdrop::frameDone, this, &WaylandWallpaperWindow::waitForNext);
    connect(m_backdrop.get(), &WaylandBackdrop::aboutToEnd, this, &WaylandWallpaperWindow::release);
}

WaylandWallpaperWindow::~WaylandWallpaperWindow()
{
    hide();
}

Canvas WaylandWallpaperWindow::canvas()
{
    return std::visit([](const auto& canvas) -> Canvas { return canvas.get(); }, m_canvas);
}

void WaylandWallpaperWindow::show()
{
    if (!std::exchange(m_isShown, true))
        m_backdrop->startPlaying();
}

void WaylandWallpaperWindow::hide()
{
    if (!std::exchange(m_isShown, false))
        return;
    m_pause.stop();
    release();
    m_backdrop->stopPlaying();
}

void WaylandWallpaperWindow::release()
{
    std::visit([](const auto& canvas) { canvas->release(); }, m_canvas);
}

void WaylandWallpaperWindow::setFrameRate(int framesPerSecond)
{
    if (std::exchange(m_framesPerSecond, framesPerSecond) == framesPerSecond)
        return;
    if (framesPerSecond == 0)
        m_pause.stop();
    else if (m_isShown && m_backdrop->isReady() && !m_backdrop->isWaitingForFrame() && !m_pause.isActive())
        m_backdrop->commit();
}

void WaylandWallpaperWindow::waitForNext()
{
    if (!m_isShown || m_framesPerSecond == 0)
        return;
    m_pause.startAfterShown(m_framesPerSecond, m_backdrop->refreshSeconds());
}

/// Where nothing has changed nothing was shown, and the next frame still has to be asked for.
void WaylandWallpaperWindow::drawNext()
{
    Q_EMIT frameDue();
    if (m_framesPerSecond > 0 && !m_backdrop->isWaitingForFrame() && m_backdrop->isReady())
        m_backdrop->commit();
}

} // namespace tessel
