// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/frame_painter.h"

#include "shaders/shaders.h"

#include <array>
#include <utility>

namespace tessel {

namespace {

bool canPaint(const Frame& frame)
{
    return CellPainter::canPaint(frame) || ScreenPainter::canPaint(frame) || SmoothPainter::canPaint(frame);
}

Frame alone(const Frame& fade, const Look& look, Edge edge)
{
    return {.previous = look,
            .current = look,
            .width = fade.width,
            .height = fade.height,
            .time = fade.time,
            .reference = fade.reference,
            .edge = edge,
            .previousEdge = edge};
}

} // namespace

bool FramePainter::paint(FrameEncoder& encoder, const Frame& frame, PixelCanvas& canvas)
{
    const Frame current = alone(frame, frame.current, frame.edge);
    if (frame.mix < 1.0F) {
        const Frame previous = alone(frame, frame.previous, frame.previousEdge);
        const bool isPainted = canPaint(previous) && canPaint(current);
        if (isPainted)
            paintFade(encoder, previous, frame, canvas);
        return isPainted;
    }
    if (m_previous.look)
        m_previous = {};
    if (!canPaint(current))
        return false;
    if (std::exchange(m_current.isApart, false)) {
        m_current.invalidate();
        m_current.memory.releasePixels();
    }
    if (shaders::kind(frame.current.dither) == shaders::DitherKind::cell)
        canvas.releasePixels();
    paintLayer(encoder, m_current, current, canvas);
    return true;
}

void FramePainter::paintFade(FrameEncoder& encoder, const Frame& previous, const Frame& frame,
                             PixelCanvas& canvas)
{
    if (m_previous.look != frame.previous && m_current.look == frame.previous)
        std::swap(m_previous, m_current);
    paintApart(encoder, m_previous, previous);
    paintApart(encoder, m_current, alone(frame, frame.current, frame.edge));
    mixPixels({m_previous.memory.pixels(), cellCount({frame.width, frame.height})}, m_current.memory.pixels(),
              frame.mix, canvas.pixels());
    canvas.presentPixels(std::array{
        PixelRect{0, 0, static_cast<std::uint16_t>(frame.width), static_cast<std::uint16_t>(frame.height)}});
}

void FramePainter::paintApart(FrameEncoder& encoder, Layer& layer, const Frame& frame)
{
    layer.memory.setSize(frame.width, frame.height);
    if (!std::exchange(layer.isApart, true))
        layer.invalidate();
    paintLayer(encoder, layer, frame, layer.memory);
}

void FramePainter::paintLayer(FrameEncoder& encoder, Layer& layer, const Frame& frame, PixelCanvas& canvas)
{
    if (layer.look != frame.current)
        layer.look = frame.current;
    if (!paintWith<CellPainter>(encoder, layer, frame, canvas) &&
        !paintWith<ScreenPainter>(encoder, layer, frame, canvas))
        paintWith<SmoothPainter>(encoder, layer, frame, canvas);
}

template<typename Painter>
bool FramePainter::paintWith(FrameEncoder& encoder, Layer& layer, const Frame& frame, PixelCanvas& canvas)
{
    if (!Painter::canPaint(frame))
        return false;
    if (!std::holds_alternative<Painter>(layer.painter))
        layer.painter.template emplace<Painter>();
    std::get<Painter>(layer.painter).paint(encoder, frame, canvas);
    return true;
}

} // namespace tessel
