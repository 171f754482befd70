// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/still.h"

#include "render/stopwatch.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tessel {

namespace {

/// The rows of the largest matrix that a dither looks up by pixel, and more for good measure.
constexpr int matrixRows = 16;

bool drawable(int width, int height)
{
    std::array<GLint, 2> viewport{};
    GLint texture = 0;
    glGetIntegerv(GL_MAX_VIEWPORT_DIMS, viewport.data());
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &texture);
    return width > 0 && height > 0 && width <= std::min(texture, viewport[0]) &&
           height <= std::min(texture, viewport[1]);
}

} // namespace

StillDrawing::StillDrawing(const Frame& frame, int sliceRows) : m_frame(frame)
{
    setSliceRows(sliceRows);
}

void StillDrawing::setSliceRows(int rows)
{
    // What a dither makes of a pixel depends on its row within the target, modulo its matrix.
    m_sliceRows = std::max(rows + matrixRows - 1, matrixRows) / matrixRows * matrixRows;
}

/// Makes room for the picture and for a slice of the size that is wanted now.
bool StillDrawing::begin()
{
    if (!m_picture) {
        if (!drawable(m_frame.width, m_frame.height))
            return false;
        m_picture.emplace(m_frame.width, m_frame.height);
    }
    const int rows = std::min(m_sliceRows, m_frame.height);
    if (rows == m_targetRows)
        return true;
    m_targetRows = rows;
    m_framebuffer = {};
    m_texture = makeTexture(colorFormat, m_frame.width, rows);
    if (m_texture)
        m_framebuffer = makeFramebuffer(m_texture);
    return static_cast<bool>(m_framebuffer);
}

bool StillDrawing::advance(FrameEncoder& encoder, StillTiming* timing)
{
    if (!begin()) {
        m_picture.reset();
        return false;
    }
    Stopwatch watch;
    StillTiming taken;
    if (timing != nullptr)
        encoder.prepare(m_frame);
    taken.shaders = watch.lap();
    encoder.encode(m_frame,
                   {.framebuffer = m_framebuffer.name(), .firstRow = m_done, .height = m_targetRows});
    glFinish();
    taken.passes = watch.lap();
    const int rows = std::min(m_targetRows, m_frame.height - m_done);
    readColors(m_framebuffer, m_frame.width, rows, m_picture->row(m_done).data());
    taken.readBack = watch.lap();
    if (timing != nullptr)
        *timing = taken;
    m_done += rows;
    return m_done < m_frame.height;
}

double StillDrawing::drawn() const
{
    return std::min(static_cast<double>(m_done) / std::max(m_frame.height, 1), 1.0);
}

std::optional<Picture> StillDrawing::take()
{
    return m_done >= m_frame.height ? std::exchange(m_picture, std::nullopt) : std::nullopt;
}

std::optional<Picture> renderStill(FrameEncoder& encoder, const Frame& frame, StillTiming* timing)
{
    StillDrawing drawing(frame, frame.height);
    drawing.advance(encoder, timing);
    return drawing.take();
}

std::optional<Field> renderField(FrameEncoder& encoder, const Frame& frame)
{
    const CellTextures* cells = encoder.encodeField(frame);
    if (cells == nullptr)
        return std::nullopt;
    Field field;
    field.size = fieldSize(frame.width, frame.height, cellSize(frame));
    field.tones.resize(cellCount(field.size));
    glBindFramebuffer(GL_FRAMEBUFFER, cells->fieldTarget.name());
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glReadPixels(0, 0, field.size.width, field.size.height, GL_RED, GL_FLOAT, field.tones.data());
    return field;
}

std::vector<std::optional<Picture>> renderStills(FrameEncoder& encoder, std::span<const Look> looks,
                                                 int width, int height, double time, Edge edge)
{
    std::vector<std::optional<Picture>> pictures;
    pictures.reserve(looks.size());
    for (const Look& look : looks) {
        const Frame frame{
            .previous = look, .current = look, .width = width, .height = height, .time = time, .edge = edge};
        try {
            pictures.push_back(renderStill(encoder, frame));
        } catch (const DrawingError&) {
            pictures.emplace_back();
        }
    }
    return pictures;
}

} // namespace tessel
