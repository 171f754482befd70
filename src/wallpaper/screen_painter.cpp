// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/screen_painter.h"

#include "render/glyph_atlas.h"
#include "shaders/shaders.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

namespace tessel {

namespace {

constexpr std::uint32_t colorBits = 0xFFFFFF;
constexpr std::uint32_t opaque = 0xFF000000;
constexpr int topByte = 24;

} // namespace

bool ScreenPainter::canPaint(const Frame& frame)
{
    return frame.mix >= 1.0F && shaders::kind(frame.current.dither) == shaders::DitherKind::screen &&
           cellSize(frame) > 1.0F;
}

bool ScreenPainter::paint(FrameEncoder& encoder, const Frame& frame, PixelCanvas& canvas)
{
    const Shape shape{frame.current.dither, frame.width, frame.height, cellSize(frame), frame.current.pixel};
    if (shape != m_shape) {
        m_valid = false;
        m_grid = fieldSize(frame.width, frame.height, shape.cell);
        m_shape = shape;
        if (!drawMap(encoder, frame)) {
            m_shape = {};
            return false;
        }
    }
    if (!readInks(encoder, frame))
        return false;
    std::uint32_t* const pixels = canvas.pixels();
    findChanged();
    if (frame.current.dither == Dither::ascii)
        for (const std::uint32_t cell : m_changed)
            repaintCharacter(cell, pixels);
    else
        repaintAll(pixels);
    m_valid = true;
    const std::span<const PixelRect> changed = m_areas.take();
    if (changed.empty())
        return false;
    canvas.presentPixels(changed);
    return true;
}

bool ScreenPainter::drawMap(FrameEncoder& encoder, const Frame& frame)
{
    const GlTexture texture = makeTexture(colorFormat, frame.width, frame.height);
    if (!texture)
        return false;
    const GlFramebuffer framebuffer = makeFramebuffer(texture);
    if (!framebuffer || !encoder.encodeMap(frame, {.framebuffer = framebuffer.name()}))
        return false;
    std::vector<std::uint32_t> map(cellCount({frame.width, frame.height}));
    readColors(framebuffer, frame.width, frame.height, map.data(), GL_COLOR_ATTACHMENT0, GL_RGBA);
    const std::size_t cells = cellCount(m_grid);
    m_lower.resize(cells);
    m_upper.resize(cells);
    m_shown.assign(cells, Shown());
    m_changed.reserve(cells);
    m_areas.reset(frame.width, frame.height);
    if (frame.current.dither == Dither::ascii) {
        m_places = std::vector<Place>(); // {} would keep the memory
        m_thresholds = std::vector<std::uint8_t>();
        m_characters = std::move(map);
    } else {
        m_characters = std::vector<std::uint32_t>();
        sortMap(map);
    }
    return true;
}

/// By counting: the pixels by their cells first, which are close to each other in memory, and those of each
/// cell by their thresholds.
void ScreenPainter::sortMap(std::span<const std::uint32_t> map)
{
    m_places.resize(map.size());
    m_thresholds.resize(map.size());
    m_first.assign(m_shown.size() + 1, 0);
    for (const std::uint32_t pixel : map)
        ++m_first[(pixel & colorBits) + 1];
    std::partial_sum(m_first.begin(), m_first.end(), m_first.begin());

    std::vector<std::uint32_t> byCell(map.size());
    std::vector<std::uint32_t> next(m_first.begin(), m_first.end() - 1);
    for (std::uint32_t place = 0; place < map.size(); ++place)
        byCell[next[map[place] & colorBits]++] = place;

    const auto width = static_cast<std::uint32_t>(m_shape.width);
    for (std::size_t cell = 0; cell < m_shown.size(); ++cell) {
        const std::uint32_t first = m_first[cell];
        const std::span<const std::uint32_t> places(&byCell[first], m_first[cell + 1] - first);
        std::array<std::uint32_t, 257> begins{};
        for (const std::uint32_t place : places)
            ++begins[(map[place] >> topByte) + 1];
        std::partial_sum(begins.begin(), begins.end(), begins.begin());
        for (const std::uint32_t place : places) {
            const std::uint32_t threshold = map[place] >> topByte;
            const std::uint32_t at = first + begins[threshold]++;
            m_places[at] = {static_cast<std::uint16_t>(place % width),
                            static_cast<std::uint16_t>(place / width)};
            m_thresholds[at] = static_cast<std::uint8_t>(threshold);
        }
    }
}

bool ScreenPainter::readInks(FrameEncoder& encoder, const Frame& frame)
{
    const CellTextures* cells = encoder.encodeCells(frame);
    if (cells == nullptr)
        return false;
    readColors(cells->inkTarget, m_grid.width, m_grid.height, m_lower.data());
    readColors(cells->inkTarget, m_grid.width, m_grid.height, m_upper.data(), GL_COLOR_ATTACHMENT1);
    return true;
}

void ScreenPainter::findChanged()
{
    m_changed.clear();
    for (std::uint32_t cell = 0; cell < m_shown.size(); ++cell)
        if (!m_valid || m_lower[cell] != m_shown[cell].lower || m_upper[cell] != m_shown[cell].upper)
            m_changed.push_back(cell);
}

/// What cells know of their pixels stands far apart, and so do the pixels: both are fetched ahead.
void ScreenPainter::repaintAll(std::uint32_t* pixels)
{
    static constexpr std::size_t pixelsAhead = 4;
    static constexpr std::size_t placesAhead = 8;
    const auto width = static_cast<std::size_t>(m_shape.width);
    for (std::size_t i = 0; i < m_changed.size(); ++i) {
        if (i + placesAhead < m_changed.size()) {
            const std::uint32_t border = m_shown[m_changed[i + placesAhead]].border;
            __builtin_prefetch(m_thresholds.data() + border);
            __builtin_prefetch(m_places.data() + border);
            const std::uint32_t next = m_shown[m_changed[i + pixelsAhead]].border;
            if (next < m_places.size()) {
                const auto [x, y] = m_places[next];
                __builtin_prefetch(pixels + y * width + x, 1);
            }
        }
        repaint(m_changed[i], pixels);
    }
}

void ScreenPainter::repaint(std::size_t cell, std::uint32_t* pixels)
{
    Shown& shown = m_shown[cell];
    const std::uint32_t nextLower = m_lower[cell];
    const std::uint32_t nextUpper = m_upper[cell];
    const Range all{m_first[cell], m_first[cell + 1]};
    const std::uint32_t share = nextLower >> topByte;
    // From where it was, which is seldom far: the pixels between are those that change.
    std::uint32_t border = m_valid ? shown.border : all.begin;
    while (border > all.begin && m_thresholds[border - 1] >= share)
        --border;
    while (border < all.end && m_thresholds[border] < share)
        ++border;
    const bool keepsUpper = m_valid && ((nextUpper ^ shown.upper) & colorBits) == 0;
    const bool keepsLower = m_valid && ((nextLower ^ shown.lower) & colorBits) == 0;
    fill({keepsUpper ? std::min(shown.border, border) : all.begin, border}, nextUpper, pixels);
    fill({border, keepsLower ? std::max(shown.border, border) : all.end}, nextLower, pixels);
    shown = {nextLower, nextUpper, border};
}

/// Its cell is a square, and changes as a whole.
void ScreenPainter::repaintCharacter(std::size_t cell, std::uint32_t* pixels)
{
    const std::uint32_t lower = m_lower[cell];
    const std::uint32_t upper = m_upper[cell];
    m_shown[cell] = {lower, upper, 0};
    const std::uint32_t bit = 1U << ((lower >> topByte) * glyphCount / 255U);
    const int side = static_cast<int>(m_shape.cell);
    const int left = static_cast<int>(cell) % m_grid.width * side;
    const int top = static_cast<int>(cell) / m_grid.width * side;
    const int right = std::min(left + side, m_shape.width);
    const int bottom = std::min(top + side, m_shape.height);
    m_areas.mark(left, top, right, bottom);
    for (int y = top; y < bottom; ++y) {
        const std::size_t row = cellCount({m_shape.width, y});
        for (std::size_t at = row + static_cast<std::size_t>(left);
             at < row + static_cast<std::size_t>(right); ++at)
            pixels[at] = ((m_characters[at] & bit) != 0 ? upper : lower) | opaque;
    }
}

void ScreenPainter::fill(Range range, std::uint32_t color, std::uint32_t* pixels)
{
    const auto width = static_cast<std::size_t>(m_shape.width);
    for (std::uint32_t at = range.begin; at < range.end; ++at) {
        const auto [x, y] = m_places[at];
        pixels[y * width + x] = color | opaque;
        m_areas.mark(x, y);
    }
}

} // namespace tessel
