// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/picture_surface.h"

#include <cstring>

namespace tessel {

namespace {

constexpr int milliseconds = 1000;

std::uint32_t* rowOf(QImage& image, int y)
{
    return reinterpret_cast<std::uint32_t*>(image.scanLine(y));
}

} // namespace

PictureSurface::PictureSurface(QSize pixels) : m_image(pixels, QImage::Format_RGB32)
{
    m_image.fill(Qt::black);
    m_frames.setTimerType(Qt::PreciseTimer);
    connect(&m_frames, &QTimer::timeout, this, &LiveSurface::frameDue);
}

void PictureSurface::setFrameRate(int framesPerSecond)
{
    if (std::exchange(m_rate, framesPerSecond) == framesPerSecond)
        return;
    if (framesPerSecond == 0)
        m_frames.stop();
    else
        m_frames.start(milliseconds / framesPerSecond);
}

std::uint32_t* PictureSurface::pixels()
{
    if (m_next.isNull())
        m_next = QImage(pixelSize(), QImage::Format_RGB32);
    return rowOf(m_next, 0);
}

void PictureSurface::presentPixels(std::span<const PixelRect> changed)
{
    bool isAnother = false;
    for (const PixelRect& area : changed) {
        const std::size_t bytes = area.width * sizeof(std::uint32_t);
        for (int y = area.y; y < area.y + area.height; ++y) {
            const std::uint32_t* next = rowOf(m_next, y) + area.x;
            std::uint32_t* shown = rowOf(m_image, y) + area.x;
            if (std::memcmp(next, shown, bytes) == 0)
                continue;
            std::memcpy(shown, next, bytes);
            isAnother = true;
        }
    }
    if (isAnother)
        Q_EMIT drawn();
}

void PictureSurface::present(std::span<const ColoredRect> rectangles)
{
    if (rectangles.empty())
        return;
    for (const ColoredRect& rectangle : rectangles)
        fillRectangle(rowOf(m_image, 0), m_image.width(), rectangle);
    Q_EMIT drawn();
}

} // namespace tessel
