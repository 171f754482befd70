// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/pattern_check.h"

#include "render/stopwatch.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <numeric>
#include <sstream>
#include <stdexcept>

namespace tessel::cli {

namespace {

constexpr double frameStep = 2.0 / 30.0;
constexpr float seenStep = 0.02F;     // a change of tone that is just seen
constexpr float restlessStep = 0.05F; // one that draws the eye where it comes and goes
constexpr int blockColumns = 16;
constexpr int blockRows = 9;

FieldRequest desktop(int seed, double time)
{
    return {.seed = seed, .width = 1512, .height = 851, .time = time};
}

/// The change of every cell, ascending.
std::vector<float> changes(const Field& before, const Field& after)
{
    std::vector<float> result(before.tones.size());
    std::ranges::transform(before.tones, after.tones, result.begin(),
                           [](float a, float b) { return std::abs(a - b); });
    std::ranges::sort(result);
    return result;
}

double mean(const std::vector<float>& values)
{
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

/// Pearson's correlation; 1 for two pictures without any variation.
double correlation(const std::vector<double>& a, const std::vector<double>& b)
{
    const auto count = static_cast<double>(a.size());
    const double meanA = std::accumulate(a.begin(), a.end(), 0.0) / count;
    const double meanB = std::accumulate(b.begin(), b.end(), 0.0) / count;
    double both = 0;
    double squaresA = 0;
    double squaresB = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        both += (a[i] - meanA) * (b[i] - meanB);
        squaresA += (a[i] - meanA) * (a[i] - meanA);
        squaresB += (b[i] - meanB) * (b[i] - meanB);
    }
    return squaresA * squaresB > 0 ? both / std::sqrt(squaresA * squaresB) : 1.0;
}

/// The mean distance of the small tone pictures of two seeds, over all pairs.
double meanDistance(const std::vector<Field>& fields)
{
    std::vector<std::vector<double>> pictures(fields.size());
    std::ranges::transform(fields, pictures.begin(), blocksOf);
    double sum = 0;
    for (std::size_t a = 0; a < pictures.size(); ++a)
        for (std::size_t b = a + 1; b < pictures.size(); ++b)
            sum += 1.0 - correlation(pictures[a], pictures[b]);
    return sum / (0.5 * static_cast<double>(pictures.size() * (pictures.size() - 1)));
}

void measureTones(PatternMeasures& measures, const Field& field, int seeds)
{
    const std::array<double, 5> shares = fifthsOf(field);
    for (std::size_t i = 0; i < shares.size(); ++i)
        measures.fifths.at(i) += shares.at(i) / seeds;
    measures.largestFifth = std::max(measures.largestFifth, *std::ranges::max_element(shares));
    measures.leastDark = std::min(measures.leastDark, shares.front());
    measures.mostDark = std::max(measures.mostDark, shares.front());
    measures.leastBright = std::min(measures.leastBright, shares.back());
    measures.nonFinite += std::ranges::count_if(field.tones, [](float tone) { return !std::isfinite(tone); });
}

void measureMotion(PatternMeasures& measures, const FieldSource& draw, int seed)
{
    for (const double time : {0.0, 21.0, 3000.0}) {
        const std::vector<float> change =
            changes(draw(desktop(seed, time)), draw(desktop(seed, time + frameStep)));
        measures.frameChange = std::max(measures.frameChange, mean(change));
        measures.cellChange = std::max(measures.cellChange,
                                       static_cast<double>(change[change.size() - change.size() / 1000 - 1]));
    }
    const Field before = draw(desktop(seed, phaseLimit - frameStep / 2));
    measures.wrapChange =
        std::max(measures.wrapChange, mean(changes(before, draw(desktop(seed, frameStep / 2)))));
}

double shareAbove(const std::vector<float>& values, float limit)
{
    return static_cast<double>(
               std::ranges::count_if(values, [limit](float value) { return value > limit; })) /
           static_cast<double>(values.size());
}

/// How far the tone of each cell goes up and down again, or down and up again, while frames are added.
class Returns
{
public:
    explicit Returns(const Field& first) : m_cells(first.tones.size())
    {
        std::ranges::transform(first.tones, m_cells.begin(), [](float tone) { return Cell{tone, tone}; });
    }

    void add(const Field& next)
    {
        auto tone = next.tones.begin();
        for (Cell& cell : m_cells)
            cell.add(*tone++);
    }

    [[nodiscard]] std::vector<float> values() const
    {
        std::vector<float> values(m_cells.size());
        std::ranges::transform(m_cells, values.begin(), &Cell::back);
        return values;
    }

private:
    struct Cell
    {
        float lowest = 0;
        float highest = 0;
        float rise = 0; ///< the largest so far
        float fall = 0;
        float back = 0; ///< how much of a rise, or a fall, was taken back

        void add(float tone)
        {
            lowest = std::min(lowest, tone);
            highest = std::max(highest, tone);
            rise = std::max(rise, tone - lowest);
            fall = std::max(fall, highest - tone);
            back = std::max({back, std::min(rise, highest - tone), std::min(fall, tone - lowest)});
        }
    };
    std::vector<Cell> m_cells;
};

/// Whether a calm look is seen to move, a brisk one is restless, and no cell jumps where the clock wraps: at
/// the ends of the speeds that the shuffle draws.
void measurePace(PatternMeasures& measures, const FieldSource& draw, int seed)
{
    constexpr double calm = 0.15;
    constexpr double brisk = 0.5;
    constexpr int framesPerSecond = 20;
    constexpr double start = 21.0;
    const Field first = draw(desktop(seed, start));
    measures.seenToMove = std::min(
        measures.seenToMove, shareAbove(changes(first, draw(desktop(seed, start + 3 * calm))), seenStep));
    Returns returns(first);
    Field last = first;
    for (int i = 1; i <= framesPerSecond; ++i) {
        Field next = draw(desktop(seed, start + i * brisk / framesPerSecond));
        returns.add(next);
        measures.jump = std::max<double>(measures.jump, changes(last, next).back());
        last = std::move(next);
    }
    measures.restless = std::max(measures.restless, shareAbove(returns.values(), restlessStep));
    const double half = 0.5 * brisk / framesPerSecond;
    const Field before = draw(desktop(seed, phaseLimit - half));
    measures.wrapJump =
        std::max<double>(measures.wrapJump, changes(before, draw(desktop(seed, half))).back());
}

void measureAgreement(PatternMeasures& measures, const FieldSource& draw, int seed)
{
    const Field middle = draw(desktop(seed, 0.0));
    const Field small = draw({.seed = seed, .width = 192, .height = 108});
    const Field large = draw({.seed = seed, .width = 3024, .height = 1701});
    measures.agreement = std::min({measures.agreement, likeness(middle, small), likeness(middle, large)});
}

/// Collects the sentences of the limits that do not hold.
class Limits
{
public:
    void require(bool holds, const std::string& what, double value, const std::string& limit)
    {
        if (holds)
            return;
        std::ostringstream text;
        text << what << " is " << std::setprecision(3) << value << ", " << limit;
        broken.push_back(text.str());
    }

    std::vector<std::string> broken;
};

} // namespace

std::array<double, 5> fifthsOf(const Field& field)
{
    std::array<double, 5> shares{};
    for (const float tone : field.tones) {
        if (std::isfinite(tone))
            shares.at(static_cast<std::size_t>(std::clamp(tone * 5.0F, 0.0F, 4.0F))) +=
                1.0 / static_cast<double>(field.tones.size());
    }
    return shares;
}

std::vector<double> blocksOf(const Field& field)
{
    std::vector<double> sums(std::size_t{blockColumns} * blockRows);
    std::vector<int> counts(sums.size());
    auto tone = field.tones.begin();
    for (int y = 0; y < field.size.height; ++y) {
        for (int x = 0; x < field.size.width; ++x) {
            const int row = y * blockRows / field.size.height;
            const int column = x * blockColumns / field.size.width;
            const auto block =
                static_cast<std::size_t>(row) * blockColumns + static_cast<std::size_t>(column);
            sums[block] += *tone++;
            ++counts[block];
        }
    }
    for (std::size_t i = 0; i < sums.size(); ++i)
        sums[i] /= std::max(counts[i], 1);
    return sums;
}

double likeness(const Field& one, const Field& other)
{
    return correlation(blocksOf(one), blocksOf(other));
}

PatternMeasures measure(const FieldSource& draw, int seeds)
{
    PatternMeasures measures;
    std::vector<Field> fields;
    fields.reserve(static_cast<std::size_t>(seeds));
    Stopwatch watch;
    for (int seed = 0; seed < seeds; ++seed)
        fields.push_back(draw(desktop(seed, 0.0)));
    measures.nanoseconds =
        watch.lap() * 1e6 / (static_cast<double>(seeds) * static_cast<double>(fields.front().tones.size()));
    for (const Field& field : fields)
        measureTones(measures, field, seeds);
    for (std::size_t a = 0; a < fields.size(); ++a)
        for (std::size_t b = a + 1; b < fields.size(); ++b)
            measures.seedDistance = std::min(measures.seedDistance, mean(changes(fields[a], fields[b])));
    measures.pictureDistance = meanDistance(fields);
    for (int seed = 0; seed < seeds; ++seed) {
        measureMotion(measures, draw, seed);
        measurePace(measures, draw, seed);
        measureAgreement(measures, draw, seed);
    }
    return measures;
}

std::vector<std::string> complaints(Pattern pattern, const PatternMeasures& measures)
{
    Limits limits;
    limits.require(measures.nonFinite == 0, "the number of cells that are no number",
                   static_cast<double>(measures.nonFinite), "none is allowed");
    limits.require(measures.agreement >= 0.95, "the agreement between resolutions", measures.agreement,
                   "at least 0.95 is wanted");
    limits.require(measures.cellChange <= 0.5, "the change of the liveliest cells from frame to frame",
                   measures.cellChange, "at most 0.5 is allowed");
    limits.require(measures.frameChange <= 0.03, "the mean change from frame to frame", measures.frameChange,
                   "at most 0.03 is allowed");
    limits.require(measures.wrapChange <= 1.5 * measures.frameChange + 0.001,
                   "the change where the clock wraps", measures.wrapChange,
                   "at most one and a half times the largest other is allowed");
    limits.require(measures.jump <= 0.25,
                   "the change of the liveliest cell in a 20th of a second at speed 0.5", measures.jump,
                   "at most 0.25 is allowed");
    limits.require(measures.wrapJump <= 1.5 * measures.jump + 0.02,
                   "the change of the liveliest cell where the clock wraps", measures.wrapJump,
                   "at most one and a half times the largest other is allowed");
    limits.require(measures.restless <= 0.1,
                   "the share of cells that come and go within a second at speed 0.5", measures.restless,
                   "at most 0.1 is allowed");
    // A photo has the tones it has, shows the same for every seed and need not move.
    if (pattern == Pattern::image)
        return limits.broken;
    limits.require(measures.frameChange >= 0.0002, "the mean change from frame to frame",
                   measures.frameChange, "at least 0.0002 is wanted, or nothing seems to move");
    limits.require(measures.seenToMove >= 0.02,
                   "the share of cells that change to the eye within 3 seconds at speed 0.15",
                   measures.seenToMove, "at least 0.02 is wanted");
    limits.require(measures.seedDistance >= 0.05, "the distance of the two nearest seeds",
                   measures.seedDistance, "at least 0.05 is wanted");
    limits.require(measures.pictureDistance >= pictureFloor, "the mean distance of two seeds' small pictures",
                   measures.pictureDistance, "at least 0.5 is wanted, or all seeds are one composition");
    if (entry(pattern).ground == Ground::dark) {
        limits.require(measures.leastDark >= 0.45, "the least share of the darkest fifth", measures.leastDark,
                       "at least 0.45 is wanted of light on dark");
        limits.require(measures.mostDark <= 0.75, "the largest share of the darkest fifth", measures.mostDark,
                       "at most 0.75 is wanted of light on dark");
    } else {
        limits.require(measures.largestFifth <= 0.7, "the largest share of one fifth", measures.largestFifth,
                       "at most 0.7 is wanted");
        limits.require(measures.leastDark >= 0.005, "the least share of the darkest fifth",
                       measures.leastDark, "at least 0.005 is wanted");
    }
    limits.require(measures.leastBright >= 0.005, "the least share of the brightest fifth",
                   measures.leastBright, "at least 0.005 is wanted");
    return limits.broken;
}

FieldSource patternSource(FrameEncoder& encoder, Pattern pattern)
{
    return [&encoder, pattern](const FieldRequest& request) {
        Look look;
        look.pattern = pattern;
        look.seed = static_cast<float>(request.seed);
        look.contrast = 1.0F;
        look.grain = 0.0F;
        look.vignette = 0.0F;
        std::optional<Field> field = renderField(encoder, {.previous = look,
                                                           .current = look,
                                                           .width = request.width,
                                                           .height = request.height,
                                                           .time = request.time});
        if (!field)
            throw std::runtime_error("the field of " + std::string(title(pattern)) + " could not be drawn");
        return std::move(*field);
    };
}

} // namespace tessel::cli
