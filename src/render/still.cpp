// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/still.h"

#include "render/stopwatch.h"

#include <algorithm>
#include <array>

namespace tessel {

namespace {

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

std::optional<Picture> renderStill(FrameEncoder& encoder, const Frame& frame, StillTiming* timing)
{
    if (!drawable(frame.width, frame.height))
        return std::nullopt;
    const GlTexture texture = makeTexture(colorFormat, frame.width, frame.height);
    if (!texture)
        return std::nullopt;
    const GlFramebuffer framebuffer = makeFramebuffer(texture);
    if (!framebuffer)
        return std::nullopt;

    Stopwatch watch;
    StillTiming taken;
    if (timing != nullptr)
        encoder.prepare(frame);
    taken.shaders = watch.lap();
    encoder.encode(frame, {framebuffer.name(), RowOrder::topFirst});
    glFinish();
    taken.passes = watch.lap();
    Picture picture(frame.width, frame.height);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer.name());
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glReadPixels(0, 0, frame.width, frame.height, GL_BGRA, GL_UNSIGNED_INT_8_8_8_8_REV, picture.pixels.get());
    taken.readBack = watch.lap();
    if (timing != nullptr)
        *timing = taken;
    return picture;
}

std::optional<Field> renderField(FrameEncoder& encoder, const Frame& frame)
{
    const CellTextures* cells = encoder.encodeField(frame);
    if (cells == nullptr)
        return std::nullopt;
    Field field;
    field.size = fieldSize(frame.width, frame.height,
                           cellSize(frame.current, frame.width, frame.height, frame.reference));
    field.tones.resize(static_cast<std::size_t>(field.size.width) *
                       static_cast<std::size_t>(field.size.height));
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
    for (const Look& look : looks)
        pictures.push_back(renderStill(encoder, {.previous = look,
                                                 .current = look,
                                                 .width = width,
                                                 .height = height,
                                                 .time = time,
                                                 .edge = edge}));
    return pictures;
}

} // namespace tessel
