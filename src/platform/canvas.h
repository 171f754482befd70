// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/pixel_rect.h"

#include <QObject>
#include <QSize>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <variant>

namespace tessel {

class GlContext;

/// Pixels of one colour, 0xRRGGBB.
struct ColoredRect
{
    std::uint32_t color = 0;
    PixelRect area;
};

/// Fills a rectangle of memory for all pixels, 0xFFRRGGBB without gaps.
/// \param width pixels in a row of it
inline void fillRectangle(std::uint32_t* pixels, int width, const ColoredRect& rectangle)
{
    static constexpr std::uint32_t opaque = 0xFF000000;
    const auto& [color, area] = rectangle;
    for (int y = area.y; y < area.y + area.height; ++y)
        std::fill_n(pixels + static_cast<std::ptrdiff_t>(y) * width + area.x, area.width, color | opaque);
}

/// How a GPU's frames get into a window.
class GpuCanvas
{
public:
    virtual ~GpuCanvas() = default;

    /// Makes the context current for drawing into the window's own framebuffer.
    /// \param context made by the window system of the window
    /// \return false while the window cannot be drawn to
    [[nodiscard]] virtual bool makeCurrent(GlContext& context) = 0;

    /// Shows what was drawn, without waiting for the screen.
    virtual void present(GlContext& context) = 0;
};

/// How the processor's frames get into a window: as a whole, or where little changes as rectangles, which is
/// many times cheaper.
class PixelCanvas
{
public:
    virtual ~PixelCanvas() = default;

    /// Whether the window can be drawn to.
    [[nodiscard]] virtual bool isReady() const = 0;

    /// Memory for all pixels, 0xFFRRGGBB from the top left corner on, without gaps. It may be written until
    /// presentPixels() is called, and keeps what was written until releasePixels() frees it.
    [[nodiscard]] virtual std::uint32_t* pixels() = 0;

    /// \param changed where the memory is another than when it was last presented
    virtual void presentPixels(std::span<const PixelRect> changed) = 0;
    virtual void releasePixels() = 0;

    /// Paints rectangles over what is shown.
    /// \param rectangles those of one colour stand together
    virtual void present(std::span<const ColoredRect> rectangles) = 0;
};

/// One of the two, which lives as long as its window.
using Canvas = std::variant<GpuCanvas*, PixelCanvas*>;

/// What a live view is drawn on. It sets the pace: it asks for frames as somebody can see them.
class LiveSurface : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] virtual QSize pixelSize() const = 0;
    [[nodiscard]] virtual Canvas canvas() = 0;

    /// How many frames a second it asks for from now on; 0 for none. Nothing is asked for that nobody would
    /// see.
    virtual void setFrameRate(int framesPerSecond) = 0;

Q_SIGNALS:
    /// It is time for the next frame.
    void frameDue();
    /// What was drawn is lost: the next frame has to be drawn whole, and now.
    void contentLost();
};

} // namespace tessel
