// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/smooth_painter.h"

#include "render/limits.h"
#include "shaders/shaders.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <utility>

namespace tessel {

namespace {

constexpr float unknownRate = std::numeric_limits<float>::infinity();

/// The sample whose tone is shown as 0.
constexpr int sampledZero = 24576;
static_assert((65535 - sampledZero) * 2 / 5 == SmoothColors::highestTone,
              "2.5 and 0 are as far apart as 65535 and the zero");

/// Every tile is evaluated again after so many frames, and up to as many more, so that not all are at once.
constexpr std::uint32_t longestRest = 16;

/// Farther than the phase goes from one frame to the next at any speed.
constexpr double longestStride = 0.5;

/// The error of interpolating over twice the step, in levels, up to which a tile is sampled more coarsely the
/// next time, and beyond which it is sampled more finely at once. With half the step a smooth curve has a
/// quarter of it, so that the one does not bring back the other.
constexpr float coarseError = 2.0F;
constexpr float fineError = 10.0F;

/// How far tones may be from what is painted, in levels.
constexpr float dueChange = 2.0F;

/// A change that is not painted yet, in levels.
constexpr float leastChange = 0.5F;

/// Samples along a tile with so many cells from one to the next: where tones lie between them one at the far
/// end, too.
template<int Step>
constexpr std::size_t sampleSide = CellTile::side / Step + (Step > 1 ? 1 : 0);

/// How far the middle of three samples is from where the others have it, the most among all along rows and
/// columns.
template<int Step>
int bend(const std::uint16_t* samples)
{
    static constexpr std::size_t side = sampleSide<Step>;
    int most = 0;
    for (std::size_t y = 0; y < side; ++y) {
        const std::uint16_t* row = samples + y * TileTones::pitch;
        for (std::size_t x = 0; x + 2 < side; ++x)
            most = std::max(most, std::abs(row[x] - 2 * row[x + 1] + row[x + 2]));
    }
    for (std::size_t y = 0; y + 2 < side; ++y) {
        const std::uint16_t* row = samples + y * TileTones::pitch;
        for (std::size_t x = 0; x < side; ++x)
            most = std::max(most,
                            std::abs(row[x] - 2 * row[TileTones::pitch + x] + row[2 * TileTones::pitch + x]));
    }
    return most / 2;
}

/// The tones of a row of cells, times the step, between samples that are a step apart.
template<int Step>
void spreadRow(const std::uint16_t* samples, std::array<int, CellTile::side>& tones)
{
    for (std::size_t x = 0; x < CellTile::side; ++x) {
        const auto part = static_cast<int>(x % Step);
        tones[x] = samples[x / Step] * (Step - part);
        if (part != 0)
            tones[x] += samples[x / Step + 1] * part;
    }
}

/// The tones of all cells of a tile.
template<int Step>
void interpolate(const std::uint16_t* samples, TileOfTones& tones)
{
    std::array<int, CellTile::side> above{};
    std::array<int, CellTile::side> below{};
    spreadRow<Step>(samples, below);
    for (std::size_t y = 0; y < CellTile::side; ++y) {
        const auto part = static_cast<int>(y % Step);
        if (part == 0) {
            above = below;
            if (y / Step + 1 < sampleSide<Step>)
                spreadRow<Step>(samples + (y / Step + 1) * TileTones::pitch, below);
        }
        for (std::size_t x = 0; x < CellTile::side; ++x)
            tones[y * CellTile::side + x] = static_cast<std::int16_t>(
                std::min((above[x] * (Step - part) + below[x] * part) / (Step * Step) - sampledZero, 0x7FFF));
    }
}

/// What the samples of a tile say: its tones, and how far they bend.
template<int Step>
int sampled(const std::uint16_t* samples, TileOfTones& tones)
{
    interpolate<Step>(samples, tones);
    return bend<Step>(samples);
}

/// How far apart the samples of a tile are to be the next time.
/// \param error of interpolating over twice the step, in levels
int nextStep(int step, float error)
{
    if (error > fineError)
        return std::max(step / 2, 1);
    return error <= coarseError ? std::min(step * 2, 4) : step;
}

/// Of each place in a grid, what `choose` says of it and its neighbours.
template<typename Value, typename Choose>
void chooseAround(GridSize grid, const std::vector<Value>& values, std::vector<Value>& chosen, Choose choose)
{
    const auto width = static_cast<std::size_t>(grid.width);
    const auto height = static_cast<std::size_t>(grid.height);
    for (std::size_t y = 0; y < height; ++y) {
        const std::size_t top = y > 0 ? y - 1 : y;
        const std::size_t bottom = std::min(y + 1, height - 1);
        const auto column = [&](std::size_t x) {
            return choose(choose(values[top * width + x], values[y * width + x]), values[bottom * width + x]);
        };
        Value before = column(0);
        Value here = before;
        for (std::size_t x = 0; x < width; ++x) {
            const Value next = x + 1 < width ? column(x + 1) : here;
            chosen[y * width + x] = choose(choose(before, here), next);
            before = std::exchange(here, next);
        }
    }
}

/// The shaders' random bits of a cell, as two numbers whose difference this is: -1 to 1.
float grainAt(std::uint32_t column, std::uint32_t row)
{
    static constexpr std::uint32_t origin = 4096;
    std::uint32_t bits = (column + origin) * 0x9e3779b1U + (row + origin) * 0x85ebca77U;
    bits ^= bits >> 16U;
    bits *= 0x7feb352dU;
    bits ^= bits >> 15U;
    bits *= 0x846ca68bU;
    bits ^= bits >> 16U;
    return (static_cast<float>(bits & 0xFFFFU) - static_cast<float>(bits >> 16U)) / 65536.0F;
}

/// Colours that are added up, two channels in a number.
struct Sum
{
    Sum() = default;
    explicit Sum(std::uint32_t color) : even(color & lanes), odd(color >> 8U & lanes) {}

    /// The colour of a sum of sixteen.
    [[nodiscard]] std::uint32_t sixteenth() const
    {
        static constexpr std::uint32_t half = 0x00080008;
        return ((even + half) >> 4U & lanes) | ((odd + half) >> 4U & lanes) << 8U;
    }

    static constexpr std::uint32_t lanes = 0x00FF00FF;
    std::uint32_t even = 0;
    std::uint32_t odd = 0;
};

/// Of two colours, the nearer one three times.
Sum weighted(Sum near, Sum far)
{
    Sum sum;
    sum.even = 3U * near.even + far.even;
    sum.odd = 3U * near.odd + far.odd;
    return sum;
}

} // namespace

bool SmoothPainter::canPaint(const Frame& frame)
{
    return frame.mix >= 1.0F && frame.current.dither == Dither::smooth;
}

bool SmoothPainter::paint(FrameEncoder& encoder, const Frame& frame, PixelCanvas& canvas)
{
    if (!isOf(frame))
        begin(encoder, frame);
    // After a sleep nothing is where it was.
    if (std::abs(frame.time - std::exchange(m_time, frame.time)) > longestStride) {
        m_valid = false;
        std::ranges::fill(m_steps, std::uint8_t{1});
    }
    ++m_frame;
    m_changed.clear();
    spread();
    findDue(frame.time);
    std::uint32_t* const pixels = canvas.pixels();
    // Tiles that turn out to need finer samples get them at once.
    for (std::size_t i = m_due.size(); i-- > 0;) {
        const int step = 1 << i;
        for (std::span<const CellTile> rest = m_due.at(i); !rest.empty();) {
            const std::size_t count = std::min(rest.size(), TileTones::capacity);
            if (!evaluate(encoder, frame, step, rest.first(count)))
                return false;
            rest = rest.subspan(count);
        }
    }
    m_valid = true;
    for (const CellTile tile : m_changed)
        if (m_shape.cell == 1)
            paintCells(tile, pixels);
        else
            paintBetweenCells(tile, pixels);
    const std::span<const PixelRect> changed = m_bands.take();
    if (changed.empty())
        return false;
    canvas.presentPixels(changed);
    return true;
}

bool SmoothPainter::isOf(const Frame& frame) const
{
    return m_shape.width == frame.width && m_shape.height == frame.height && m_shape.edge == frame.edge &&
           m_shape.look == frame.current;
}

void SmoothPainter::begin(FrameEncoder& encoder, const Frame& frame)
{
    m_colors.set(encoder.readRamp(frame), drawnOffset(frame.current.offset));
    m_shape = {frame.current, frame.width, frame.height, static_cast<int>(cellSize(frame)), frame.edge};
    m_valid = false;
    m_grid = fieldSize(m_shape.width, m_shape.height, static_cast<float>(m_shape.cell));
    m_tiles = fieldSize(m_grid.width, m_grid.height, CellTile::side);
    const std::size_t tiles = cellCount(m_tiles);
    m_tones.resize(tiles * std::tuple_size_v<TileOfTones>);
    m_states.resize(tiles);
    m_rates.assign(tiles, unknownRate);
    m_ratesAround.resize(tiles);
    m_steps.assign(tiles, 1);
    m_stepsAround.resize(tiles);
    for (std::vector<CellTile>& due : m_due)
        due.reserve(tiles);
    m_changed.reserve(tiles);
    m_bands.reset(m_shape.width, m_shape.height);
    makeGrain();
}

void SmoothPainter::makeGrain()
{
    m_grain.clear();
    const float grain = limits::grain.apply(m_shape.look.grain);
    if (grain <= 0.0F)
        return;
    const float most = 0.6F * grain * static_cast<float>(SmoothColors::highestTone);
    m_grain.reserve(m_tones.size());
    const auto columns = static_cast<std::uint32_t>(m_tiles.width * CellTile::side);
    const auto rows = static_cast<std::uint32_t>(m_tiles.height * CellTile::side);
    for (std::uint32_t row = 0; row < rows; ++row)
        for (std::uint32_t column = 0; column < columns; ++column)
            m_grain.push_back(static_cast<std::int16_t>(std::lround(most * grainAt(column, row))));
}

std::size_t SmoothPainter::index(CellTile tile) const
{
    return std::size_t{tile.row} * static_cast<std::size_t>(m_tiles.width) + tile.column;
}

/// Cells from one row to the next: those of whole tiles.
std::size_t SmoothPainter::stride() const
{
    return static_cast<std::size_t>(m_tiles.width) * CellTile::side;
}

std::size_t SmoothPainter::firstCell(CellTile tile) const
{
    return (std::size_t{tile.row} * stride() + tile.column) * CellTile::side;
}

/// What moves is in the next tile soon: that is evaluated as often, and not much more coarsely.
void SmoothPainter::spread()
{
    chooseAround(m_tiles, m_rates, m_ratesAround, [](float a, float b) { return std::max(a, b); });
    chooseAround(m_tiles, m_steps, m_stepsAround,
                 [](std::uint8_t a, std::uint8_t b) { return std::min(a, b); });
}

void SmoothPainter::findDue(double time)
{
    for (std::vector<CellTile>& due : m_due)
        due.clear();
    std::size_t at = 0;
    for (int row = 0; row < m_tiles.height; ++row) {
        for (int column = 0; column < m_tiles.width; ++column, ++at) {
            if (m_valid && !isDue(at, time))
                continue;
            const int step = std::min<int>(m_steps[at], 2 * m_stepsAround[at]);
            m_due.at(static_cast<std::size_t>(step / 2))
                .push_back({static_cast<std::uint16_t>(column), static_cast<std::uint16_t>(row)});
        }
    }
}

bool SmoothPainter::isDue(std::size_t tile, double time) const
{
    const TileState& state = m_states[tile];
    const double passed = std::abs(time - state.time);
    if (passed == 0.0)
        return false;
    const std::uint32_t rest = longestRest + static_cast<std::uint32_t>(tile) * 5 % longestRest;
    return m_frame - state.evaluated >= rest ||
           passed * m_ratesAround[tile] >= dueChange * m_colors.tonesPerLevel();
}

bool SmoothPainter::evaluate(FrameEncoder& encoder, const Frame& frame, int step,
                             std::span<const CellTile> tiles)
{
    if (!encoder.sampleTiles(frame, tiles, step, m_samples))
        return false;
    for (std::size_t i = 0; i < tiles.size(); ++i)
        update(tiles[i], step, m_samples.of(i), frame.time);
    return true;
}

void SmoothPainter::update(CellTile tile, int step, const std::uint16_t* samples, double time)
{
    TileOfTones tones;
    const int error = step == 1   ? sampled<1>(samples, tones)
                      : step == 2 ? sampled<2>(samples, tones)
                                  : sampled<4>(samples, tones);
    const std::size_t at = index(tile);
    const float level = m_colors.tonesPerLevel();
    const int next = nextStep(step, static_cast<float>(error) / level);
    m_steps[at] = static_cast<std::uint8_t>(next);
    if (next < step) {
        m_due.at(static_cast<std::size_t>(next / 2)).push_back(tile);
        return;
    }
    const auto change = static_cast<float>(finish(tile, tones));
    TileState& state = m_states[at];
    state.evaluated = m_frame;
    const auto passed = static_cast<float>(std::abs(time - state.time));
    if (m_valid && passed > 0.0F)
        m_rates[at] = change / passed;
    if (m_valid && change < leastChange * level)
        return;
    state.time = time;
    for (std::size_t y = 0; y < CellTile::side; ++y)
        std::copy_n(&tones[y * CellTile::side], CellTile::side, &m_tones[firstCell(tile) + y * stride()]);
    m_changed.push_back(tile);
}

/// Adds the grain, and leaves the tones within their limits.
/// \return how far one of them is from what is painted, the most
int SmoothPainter::finish(CellTile tile, TileOfTones& tones) const
{
    static constexpr std::array<std::int16_t, CellTile::side> none{};
    std::size_t first = firstCell(tile);
    int change = 0;
    for (std::size_t y = 0; y < CellTile::side; ++y, first += stride()) {
        std::int16_t* row = &tones[y * CellTile::side];
        const std::int16_t* painted = &m_tones[first];
        const std::int16_t* grain = m_grain.empty() ? none.data() : &m_grain[first];
        for (std::size_t x = 0; x < CellTile::side; ++x) {
            const int tone = std::clamp<int>(row[x] + grain[x], 0, SmoothColors::highestTone);
            change = std::max(change, std::abs(tone - painted[x]));
            row[x] = static_cast<std::int16_t>(tone);
        }
    }
    return change;
}

/// Of cells that are pixels.
void SmoothPainter::paintCells(CellTile tile, std::uint32_t* pixels)
{
    const int left = tile.column * CellTile::side;
    const int top = tile.row * CellTile::side;
    const auto width = static_cast<std::size_t>(std::min<int>(CellTile::side, m_shape.width - left));
    const int bottom = std::min(top + CellTile::side, m_shape.height);
    const std::int16_t* tones = &m_tones[firstCell(tile)];
    for (int y = top; y < bottom; ++y, tones += stride()) {
        const SmoothColors::Row colors = m_colors.row(y);
        std::uint32_t* out = pixels + cellCount({m_shape.width, y}) + left;
        for (std::size_t x = 0; x < width; ++x)
            out[x] = colors[x % colors.size()][SmoothColors::place(tones[x])];
    }
    m_bands.mark(top);
    m_bands.mark(bottom - 1);
}

/// The colours of a tile's cells, and of those around it.
SmoothPainter::Surrounded SmoothPainter::colorsAround(CellTile tile) const
{
    Surrounded cells{};
    int row = tile.row * CellTile::side - 1;
    for (auto& colors : cells) {
        const int inside = std::clamp(row++, 0, m_grid.height - 1);
        const SmoothColors::Row tables = m_colors.row(inside);
        const std::int16_t* tones = &m_tones[static_cast<std::size_t>(inside) * stride()];
        int column = tile.column * CellTile::side - 1;
        for (std::uint32_t& color : colors) {
            const auto place = static_cast<std::size_t>(std::clamp(column++, 0, m_grid.width - 1));
            color = tables[place % tables.size()][SmoothColors::place(tones[place])];
        }
    }
    return cells;
}

/// Of cells of two pixels, whose colours are those of their centres; those of the pixels lie between. The
/// pixels around the tile lie between its cells and those of others.
void SmoothPainter::paintBetweenCells(CellTile tile, std::uint32_t* pixels)
{
    const Surrounded cells = colorsAround(tile);
    const int firstX = 2 * (tile.column * CellTile::side - 1);
    const int firstY = 2 * (tile.row * CellTile::side - 1);
    static constexpr int last = 2 * (CellTile::side + 2) - 1;
    const int left = std::max(firstX + 1, 0);
    const int right = std::min(firstX + last, m_shape.width);
    const int top = std::max(firstY + 1, 0);
    const int bottom = std::min(firstY + last, m_shape.height);
    for (int y = top; y < bottom; ++y) {
        const auto row = static_cast<std::size_t>(y - firstY);
        const auto& near = cells.at(row / 2);
        const auto& far = cells.at((row - 1) / 2 + (row % 2 == 0 ? 0 : 1));
        std::array<Sum, CellTile::side + 2> sums{};
        std::ranges::transform(near, far, sums.begin(), [](std::uint32_t nearer, std::uint32_t farther) {
            return weighted(Sum(nearer), Sum(farther));
        });
        std::uint32_t* out = pixels + cellCount({m_shape.width, y});
        for (int x = left; x < right; ++x) {
            const auto column = static_cast<std::size_t>(x - firstX);
            const std::size_t farther = (column - 1) / 2 + (column % 2 == 0 ? 0 : 1);
            out[x] = weighted(sums[column / 2], sums[farther]).sixteenth();
        }
    }
    m_bands.mark(top);
    m_bands.mark(bottom - 1);
}

} // namespace tessel
