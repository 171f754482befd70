// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/smooth_painter.h"

#include "render/limits.h"
#include "shaders/shaders.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <utility>

namespace tessel {

namespace {

/// The sample whose tone is shown as 0.
constexpr int sampledZero = 24576;
static_assert((65535 - sampledZero) * 2 / 5 == SmoothColors::highestTone,
              "2.5 and 0 are as far apart as 65535 and the zero");

/// Farther than the phase goes from one frame to the next at any speed.
constexpr double longestStride = 0.5;

/// The error of interpolating over twice the step or span, in levels, up to which a tile is sampled more
/// coarsely the next time, and beyond which it is sampled more finely at once. With half the step a smooth
/// curve has a quarter of it, so that the one does not bring back the other.
constexpr float coarseError = 3.0F;
constexpr float fineError = 12.0F;

/// How much farther the phase may be expected to go in a frame than in the one before.
constexpr double quickening = 1.25;

constexpr int longestStep = 4;
constexpr int longestSpan = 8;

/// A change that is not painted yet, in levels.
constexpr float leastChange = 1.0F;

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

SmoothPainter::KeptTones kept(const TileOfTones& tones)
{
    SmoothPainter::KeptTones result;
    static constexpr std::size_t side = CellTile::side / 2;
    for (std::size_t i = 0; i < result.size(); ++i)
        result[i] = tones[i / side * 2 * CellTile::side + i % side * 2];
    return result;
}

/// What the samples of a tile say: its tones, and how far they bend.
template<int Step>
int sampled(const std::uint16_t* samples, TileOfTones& tones)
{
    interpolate<Step>(samples, tones);
    return bend<Step>(samples);
}

/// How far apart samples are to be the next time.
/// \param error of interpolating over twice that, in levels
int nextInterval(int interval, float error, int longest)
{
    if (error > fineError)
        return std::max(interval / 2, 1);
    return error <= coarseError ? std::min(interval * 2, longest) : interval;
}

void prefetch(const TileOfTones& tones)
{
    static constexpr std::size_t line = 64 / sizeof(TileOfTones::value_type);
    for (std::size_t i = 0; i < tones.size(); i += line)
        __builtin_prefetch(&tones[i]);
}

/// Does something with each tile and its place. Tiles stand anywhere in memory, so that what belongs to one
/// is fetched while others are worked on.
template<typename Fetch, typename Action>
void forEachOf(std::span<const CellTile> tiles, Fetch fetch, Action action)
{
    static constexpr std::size_t ahead = 6;
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        if (i + ahead < tiles.size())
            fetch(tiles[i + ahead]);
        action(tiles[i], i);
    }
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

/// Grain is no more than this, so that no tone farther from those that are shown can come among them.
constexpr std::int16_t mostGrain = SmoothColors::highestTone * 3 / 5 + 1;

/// Where the colours of tones stand in their tables. All fits into 16 bits, of which as many as can be are
/// worked out at once.
template<std::size_t Count>
std::array<std::uint16_t, Count> placesOf(const std::int16_t* tones, const std::int16_t* grain)
{
    static constexpr std::int16_t darkest = -mostGrain;
    static constexpr std::int16_t brightest = SmoothColors::highestTone + mostGrain;
    std::array<std::uint16_t, Count> places;
    const auto find = [&](auto grainOf) {
        for (std::size_t i = 0; i < Count; ++i) {
            const auto tone =
                static_cast<std::int16_t>(std::clamp(tones[i], darkest, brightest) + grainOf(i));
            places[i] = SmoothColors::place(std::clamp<std::int16_t>(tone, 0, SmoothColors::highestTone));
        }
    };
    if (grain == nullptr)
        find([](std::size_t /*i*/) { return 0; });
    else
        find([grain](std::size_t i) { return grain[i]; });
    return places;
}

/// The pixels of a row that lie between neighbours among its cells, two for each pair of them.
using PixelsBetween = std::array<std::uint32_t, 2 * (std::tuple_size_v<SmoothPainter::RowOfColors> - 1)>;

/// Their channels, of which those of the cells have been added up.
constexpr std::size_t channels = sizeof(std::uint32_t);
using Sums = std::array<std::uint16_t, channels * std::tuple_size_v<PixelsBetween>>;

/// Of each pixel the nearer cell three times and the other one once.
Sums sumsBetween(const SmoothPainter::RowOfColors& cells)
{
    const auto bytes = std::bit_cast<std::array<std::uint8_t, sizeof cells>>(cells);
    std::array<std::uint16_t, std::tuple_size_v<Sums> / 2> nearLeft;
    std::array<std::uint16_t, nearLeft.size()> nearRight;
    for (std::size_t i = 0; i < nearLeft.size(); ++i) {
        nearLeft[i] = static_cast<std::uint16_t>(3 * bytes[i] + bytes[i + channels]);
        nearRight[i] = static_cast<std::uint16_t>(bytes[i] + 3 * bytes[i + channels]);
    }
    Sums sums;
    for (std::size_t i = 0; i < nearLeft.size(); i += channels) {
        std::copy_n(&nearLeft[i], channels, &sums[2 * i]);
        std::copy_n(&nearRight[i], channels, &sums[2 * i + channels]);
    }
    return sums;
}

/// The nearer row of cells counts three times.
PixelsBetween pixelsBetween(const Sums& near, const Sums& far)
{
    std::array<std::uint8_t, sizeof(PixelsBetween)> bytes;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        static constexpr int half = 8; // of a sixteenth
        const auto sixteen = static_cast<std::uint16_t>(3 * near[i] + far[i] + half);
        bytes[i] = static_cast<std::uint8_t>(sixteen >> 4U);
    }
    return std::bit_cast<PixelsBetween>(bytes);
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
    keepPace(frame.time);
    ++m_frame;
    spread();
    findDue(frame.time);
    if (!evaluateDue(encoder, frame))
        return false;
    findChanged(frame.time);
    m_valid = true;
    std::uint32_t* const pixels = canvas.pixels();
    const auto fetchTile = [this](CellTile tile) { fetch(tile); };
    const auto fetchItsPixels = [&](CellTile tile) { fetchPixels(tile, pixels); };
    forEachOf(m_changed, fetchTile, [&](CellTile tile, std::size_t /*i*/) { advance(tile, frame.time); });
    if (m_shape.cell == 1)
        forEachOf(m_changed, fetchItsPixels,
                  [&](CellTile tile, std::size_t /*i*/) { paintCells(tile, pixels); });
    else
        forEachOf(m_changed, fetchItsPixels,
                  [&](CellTile tile, std::size_t /*i*/) { paintBetweenCells(tile, pixels); });
    const std::span<const PixelRect> changed = m_areas.take();
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
    m_grid = fieldSize(m_shape.width, m_shape.height, static_cast<float>(m_shape.cell));
    m_tiles = fieldSize(m_grid.width, m_grid.height, CellTile::side);
    const std::size_t tiles = cellCount(m_tiles);
    m_tones.resize(tiles);
    m_next.resize(tiles);
    m_before.resize(tiles);
    m_states.resize(tiles);
    m_steps.resize(tiles);
    m_stepsAround.resize(tiles);
    m_spans.resize(tiles);
    m_spansAround.resize(tiles);
    forget();
    for (std::vector<CellTile>& due : m_due)
        due.reserve(tiles);
    m_changed.reserve(tiles);
    m_areas.reset(m_shape.width, m_shape.height);
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
    for (int row = 0; row < m_tiles.height; ++row)
        for (int column = 0; column < m_tiles.width; ++column) {
            TileOfTones& cells = m_grain.emplace_back();
            for (std::size_t i = 0; i < cells.size(); ++i) {
                const std::size_t x = static_cast<std::size_t>(column) * CellTile::side + i % CellTile::side;
                const std::size_t y = static_cast<std::size_t>(row) * CellTile::side + i / CellTile::side;
                cells.at(i) = static_cast<std::int16_t>(std::lround(
                    most * grainAt(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y))));
            }
        }
}

std::size_t SmoothPainter::index(CellTile tile) const
{
    return std::size_t{tile.row} * static_cast<std::size_t>(m_tiles.width) + tile.column;
}

/// A frame that comes late does not make all that follow be foreseen from afar.
void SmoothPainter::keepPace(double time)
{
    const double stride = time - std::exchange(m_time, time);
    // After a sleep nothing is where it was.
    if (std::abs(stride) > longestStride)
        forget();
    else if (m_pace * stride <= 0.0)
        m_pace = stride;
    else
        m_pace = std::copysign(std::min(std::abs(stride), quickening * std::abs(m_pace)), stride);
}

void SmoothPainter::forget()
{
    m_pace = 0.0;
    m_valid = false;
    std::ranges::fill(m_states, TileState());
    std::ranges::fill(m_steps, std::uint8_t{1});
    std::ranges::fill(m_spans, std::uint8_t{1});
}

/// What moves is in the next tile soon: that is not evaluated much more coarsely or seldom.
void SmoothPainter::spread()
{
    const auto least = [](std::uint8_t a, std::uint8_t b) { return std::min(a, b); };
    chooseAround(m_tiles, m_steps, m_stepsAround, least);
    chooseAround(m_tiles, m_spans, m_spansAround, least);
}

std::vector<CellTile>& SmoothPainter::due(Sampling sampling)
{
    const auto power = [](int value) {
        return static_cast<std::size_t>(std::countr_zero(static_cast<unsigned>(value)));
    };
    return m_due.at(power(sampling.span) * steps + power(sampling.step));
}

/// Asks the memory for what is known of a tile.
void SmoothPainter::fetch(CellTile tile) const
{
    const std::size_t at = index(tile);
    __builtin_prefetch(&m_states[at]);
    prefetch(m_tones[at]);
    prefetch(m_next[at]);
    __builtin_prefetch(&m_before[at]);
}

/// Asks it for what a tile is painted with, and where.
void SmoothPainter::fetchPixels(CellTile tile, const std::uint32_t* pixels) const
{
    if (!m_grain.empty())
        prefetch(m_grain[index(tile)]);
    const int side = m_shape.cell * CellTile::side;
    const int top = tile.row * side;
    const int bottom = std::min(top + side, m_shape.height);
    for (int y = top; y < bottom; ++y)
        __builtin_prefetch(pixels + cellCount({m_shape.width, y}) + tile.column * side, 1);
}

/// Tiles that have got where they went, and those that never will at the pace and in the direction of now.
void SmoothPainter::findDue(double time)
{
    const double square = m_pace * m_pace;
    for (std::vector<CellTile>& due : m_due)
        due.clear();
    std::size_t at = 0;
    for (int row = 0; row < m_tiles.height; ++row) {
        for (int column = 0; column < m_tiles.width; ++column, ++at) {
            TileState& state = m_states[at];
            const double ahead = (state.next - time) * m_pace; // in frames, times that square
            if (ahead < -1.5 * square || ahead > 1.5 * longestSpan * square)
                state.known = 0;
            if (state.known > 0 && (square == 0.0 || ahead >= 0.5 * square))
                continue;
            due({.step = std::min<int>(m_steps[at], 2 * m_stepsAround[at]),
                 .span = std::min<int>(m_spans[at], 2 * m_spansAround[at])})
                .push_back({static_cast<std::uint16_t>(column), static_cast<std::uint16_t>(row)});
        }
    }
}

/// Tiles that turn out to need finer samples get them at once.
/// \return false where there is no room for the samples
bool SmoothPainter::evaluateDue(FrameEncoder& encoder, const Frame& frame)
{
    for (int span = longestSpan; span > 0; span /= 2) {
        for (int step = longestStep; step > 0; step /= 2) {
            for (std::span<const CellTile> rest = due({step, span}); !rest.empty();) {
                const std::size_t count = std::min(rest.size(), TileTones::capacity);
                if (!evaluate(encoder, frame, {step, span}, rest.first(count)))
                    return false;
                rest = rest.subspan(count);
            }
        }
    }
    return true;
}

bool SmoothPainter::evaluate(FrameEncoder& encoder, const Frame& frame, Sampling sampling,
                             std::span<const CellTile> tiles)
{
    Frame ahead = frame;
    if (sampling.span > 1)
        ahead.time += sampling.span * m_pace;
    if (!encoder.sampleTiles(ahead, tiles, sampling.step, m_samples))
        return false;
    forEachOf(
        tiles, [this](CellTile tile) { fetch(tile); },
        [&](CellTile tile, std::size_t i) { update(tile, sampling, m_samples.of(i), ahead.time); });
    return true;
}

void SmoothPainter::update(CellTile tile, Sampling sampling, const std::uint16_t* samples, double time)
{
    TileOfTones tones;
    const int step = sampling.step;
    const int error = step == 1   ? sampled<1>(samples, tones)
                      : step == 2 ? sampled<2>(samples, tones)
                                  : sampled<4>(samples, tones);
    const std::size_t at = index(tile);
    const float level = m_colors.tonesPerLevel();
    const int nextStep = nextInterval(step, static_cast<float>(error) / level, longestStep);
    m_steps[at] = static_cast<std::uint8_t>(nextStep);
    if (nextStep < step) {
        due({nextStep, sampling.span}).push_back(tile);
        return;
    }
    if (m_states[at].known > 1) {
        const int nextSpan = nextInterval(sampling.span, bend(tile, tones, time) / level, longestSpan);
        if (nextSpan < sampling.span) {
            m_spans[at] = static_cast<std::uint8_t>(nextSpan);
            due({step, nextSpan}).push_back(tile);
            return;
        }
        m_spans[at] = static_cast<std::uint8_t>(isPromoted(at, sampling.span) ? nextSpan : sampling.span);
    }
    aim(tile, tones, time);
}

/// Half of the tiles go on to a longer span in one frame and half of them in another, so that not all are
/// evaluated in the same one.
bool SmoothPainter::isPromoted(std::size_t tile, int span) const
{
    const std::uint32_t hash = static_cast<std::uint32_t>(tile) * 0x9e3779b1U >> 16U;
    return ((hash ^ m_frame) & static_cast<std::uint32_t>(span)) == 0;
}

/// How far its tones at the time before are from the line between those before that and these, the most.
float SmoothPainter::bend(CellTile tile, const TileOfTones& tones, double time) const
{
    const std::size_t at = index(tile);
    const TileState& state = m_states[at];
    const double whole = time - state.before;
    if (whole == 0.0)
        return 0.0F;
    static constexpr int one = 1 << 14;
    const auto part = static_cast<int>(std::clamp((state.next - state.before) / whole, 0.0, 1.0) * one);
    const KeptTones middle = kept(m_next[at]);
    const KeptTones after = kept(tones);
    int most = 0;
    for (std::size_t i = 0; i < middle.size(); ++i) {
        const int before = m_before[at][i];
        most = std::max(most, std::abs(before + (after[i] - before) * part / one - middle[i]));
    }
    return static_cast<float>(most);
}

/// From now on it goes to these tones, at which it is to be at a time.
void SmoothPainter::aim(CellTile tile, const TileOfTones& tones, double time)
{
    const std::size_t at = index(tile);
    TileState& state = m_states[at];
    int change = 0;
    for (std::size_t i = 0; i < tones.size(); ++i)
        change = std::max(change, std::abs(tones[i] - m_tones[at][i]));
    m_before[at] = kept(m_next[at]);
    m_next[at] = tones;
    state.before = state.next;
    state.next = time;
    state.known = std::min(state.known + 1, 2);
    const auto away = static_cast<float>(std::abs(time - state.painted));
    state.rate = static_cast<float>(change) / std::max(away, std::numeric_limits<float>::min());
}

void SmoothPainter::findChanged(double time)
{
    m_changed.clear();
    const float least = leastChange * m_colors.tonesPerLevel();
    std::size_t at = 0;
    for (int row = 0; row < m_tiles.height; ++row) {
        for (int column = 0; column < m_tiles.width; ++column, ++at) {
            const TileState& state = m_states[at];
            if (m_valid && state.rate * static_cast<float>(std::abs(time - state.painted)) < least)
                continue;
            const CellTile tile{static_cast<std::uint16_t>(column), static_cast<std::uint16_t>(row)};
            m_changed.push_back(tile);
        }
    }
}

/// Brings the tones that are painted where they are at a time.
void SmoothPainter::advance(CellTile tile, double time)
{
    TileState& state = m_states[index(tile)];
    static constexpr int bits = 14;
    const double whole = state.next - state.painted;
    const double passed = whole != 0.0 ? (time - state.painted) / whole : 1.0;
    static constexpr int half = 1 << (bits - 1);
    const auto part = static_cast<std::int16_t>(std::clamp(passed, 0.0, 1.0) * (1 << bits));
    const auto rest = static_cast<std::int16_t>((1 << bits) - part);
    TileOfTones& painted = m_tones[index(tile)];
    const TileOfTones& next = m_next[index(tile)];
    for (std::size_t i = 0; i < painted.size(); ++i)
        painted[i] = static_cast<std::int16_t>((painted[i] * rest + next[i] * part + half) >> bits);
    state.painted = time;
}

/// Where the colours of a tile's cells stand in their tables: of so many of them, from one on.
template<std::size_t Count>
std::array<std::uint16_t, Count> SmoothPainter::places(std::size_t tile, std::size_t cell) const
{
    return placesOf<Count>(&m_tones[tile][cell], m_grain.empty() ? nullptr : &m_grain[tile][cell]);
}

/// Of cells that are pixels.
void SmoothPainter::paintCells(CellTile tile, std::uint32_t* pixels)
{
    const int left = tile.column * CellTile::side;
    const int top = tile.row * CellTile::side;
    const auto width = static_cast<std::size_t>(std::min<int>(CellTile::side, m_shape.width - left));
    const int bottom = std::min(top + CellTile::side, m_shape.height);
    const auto found = places<std::tuple_size_v<TileOfTones>>(index(tile), 0);
    const std::uint16_t* row = found.data();
    for (int y = top; y < bottom; ++y, row += CellTile::side) {
        const SmoothColors::Row colors = m_colors.row(y);
        std::uint32_t* out = pixels + cellCount({m_shape.width, y}) + left;
        const auto paint = [&](std::size_t count) {
            for (std::size_t x = 0; x < count; ++x)
                out[x] = colors[x % colors.size()][row[x]];
        };
        // Where the compiler knows how many there are, it needs no loop.
        if (width == CellTile::side)
            paint(CellTile::side);
        else
            paint(width);
    }
    m_areas.mark(left, top, left + static_cast<int>(width), bottom);
}

/// The colours of a tile's cells, and of those around it, all of which are within the grid.
SmoothPainter::Surrounded SmoothPainter::colorsAround(CellTile tile) const
{
    const int left = tile.column * CellTile::side;
    const int inColumns = std::min<int>(CellTile::side, m_grid.width - left);
    Surrounded cells{};
    for (int row = tile.row * CellTile::side - 1; RowOfColors & colors : cells) {
        const int inside = std::clamp(row++, 0, m_grid.height - 1);
        const SmoothColors::Row tables = m_colors.row(inside);
        const std::size_t here = index({tile.column, static_cast<std::uint16_t>(inside / CellTile::side)});
        const auto first = static_cast<std::size_t>(inside % CellTile::side * CellTile::side);
        const auto found = places<CellTile::side>(here, first);
        for (std::size_t x = 0; x < found.size(); ++x)
            colors[x + 1] = tables[x % tables.size()][found[x]];
        colors.front() =
            left > 0 ? tables.back()[places<1>(here - 1, first + CellTile::side - 1)[0]] : colors[1];
        const bool isLast = left + inColumns == m_grid.width;
        std::fill(colors.begin() + inColumns + 1, colors.end(),
                  isLast ? colors.at(static_cast<std::size_t>(inColumns))
                         : tables.front()[places<1>(here + 1, first)[0]]);
    }
    return cells;
}

/// Of cells of two pixels, whose colours are those of their centres; those of the pixels lie between. The
/// pixels around the tile lie between its cells and those of others.
void SmoothPainter::paintBetweenCells(CellTile tile, std::uint32_t* pixels)
{
    std::array<Sums, std::tuple_size_v<Surrounded>> cells;
    std::ranges::transform(colorsAround(tile), cells.begin(), sumsBetween);
    const int firstX = 2 * tile.column * CellTile::side - 1;
    const int firstY = 2 * tile.row * CellTile::side - 1;
    static constexpr auto side = static_cast<int>(std::tuple_size_v<PixelsBetween>);
    const int left = std::max(firstX, 0);
    const int right = std::min(firstX + side, m_shape.width);
    const int top = std::max(firstY, 0);
    const int bottom = std::min(firstY + side, m_shape.height);
    for (int y = top; y < bottom; ++y) {
        const auto row = static_cast<std::size_t>(y - firstY);
        const PixelsBetween between = pixelsBetween(cells.at((row + 1) / 2), cells.at(row / 2 + 1 - row % 2));
        std::copy_n(&between[static_cast<std::size_t>(left - firstX)], right - left,
                    pixels + cellCount({m_shape.width, y}) + left);
    }
    m_areas.mark(left, top, right, bottom);
}

} // namespace tessel
