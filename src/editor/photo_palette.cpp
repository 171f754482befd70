// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/photo_palette.h"

#include "model/oklab.h"
#include "model/palette.h"
#include "render/photo.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace tessel {

namespace {

/// As large as a picture has to be for its colours to be seen.
constexpr int side = 160;

/// What is less opaque is not seen.
constexpr int leastAlpha = 128;

/// Distances in OKLab: what is one colour within a picture, and how fine colours are told apart to begin
/// with.
constexpr double sameColor = 0.09;
constexpr double grain = 0.02;

/// How far from a colour those are that it may stand for as well, when others are left out.
constexpr double ownColors = 0.15;

/// Part of the picture that a colour must fill.
constexpr double leastShare = 0.004;

constexpr std::size_t firstGroups = 9;
constexpr int rounds = 16;

/// A colour, and how much of the picture has it.
struct Share
{
    Oklab color;
    double weight = 0;
};

/// Adds up colours, to their mean in the end.
class Mean
{
public:
    void add(const Oklab& color, double weight)
    {
        m_lightness += weight * color.lightness;
        m_a += weight * color.a;
        m_b += weight * color.b;
        m_weight += weight;
    }

    /// There must be something.
    [[nodiscard]] Share share() const
    {
        return {{m_lightness / m_weight, m_a / m_weight, m_b / m_weight}, m_weight};
    }
    [[nodiscard]] bool isEmpty() const { return m_weight <= 0; }

private:
    double m_lightness = 0;
    double m_a = 0;
    double m_b = 0;
    double m_weight = 0;
};

/// The colours of the pixels that are seen, alike ones together, the most frequent first.
std::vector<Share> sharesOf(const QImage& picture)
{
    const QImage pixels = picture.convertToFormat(QImage::Format_ARGB32);
    std::unordered_map<std::int64_t, Mean> cells;
    const auto step = [](double value) { return static_cast<std::int64_t>(std::floor(value / grain)) + 512; };
    for (int y = 0; y < pixels.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
        for (int x = 0; x < pixels.width(); ++x) {
            if (qAlpha(row[x]) < leastAlpha)
                continue;
            const Oklab color = toOklab(row[x] & RGB_MASK);
            cells[step(color.lightness) << 40 | step(color.a) << 20 | step(color.b)].add(color, 1);
        }
    }
    std::vector<Share> shares;
    shares.reserve(cells.size());
    for (const auto& [key, mean] : cells)
        shares.push_back(mean.share());
    // Where a map has its entries differs from one standard library to the next.
    std::ranges::sort(shares, [](const Share& one, const Share& other) {
        return std::tie(other.weight, one.color.lightness, one.color.a, one.color.b) <
               std::tie(one.weight, other.color.lightness, other.color.a, other.color.b);
    });
    return shares;
}

/// The distance to the nearest of some colours.
double distanceTo(const std::vector<Share>& others, const Oklab& color)
{
    double nearest = std::numeric_limits<double>::infinity();
    for (const Share& other : others)
        nearest = std::min(nearest, distance(color, other.color));
    return nearest;
}

/// Colours to start from: the most frequent one, then ever the one that is the farthest from all before,
/// where frequent ones count for more.
std::vector<Share> seeds(const std::vector<Share>& shares)
{
    std::vector<Share> chosen{shares.front()};
    while (chosen.size() < std::min(firstGroups, shares.size())) {
        const auto farthest = std::ranges::max_element(shares, {}, [&](const Share& share) {
            return std::sqrt(share.weight) * distanceTo(chosen, share.color);
        });
        chosen.push_back(*farthest);
    }
    return chosen;
}

/// Gathers the colours around the nearest of the groups, and moves these to their middles, until they stay.
/// \param reach how far from a group its colours may be
std::vector<Share> grouped(const std::vector<Share>& shares, std::vector<Share> groups,
                           double reach = std::numeric_limits<double>::infinity())
{
    for (int round = 0; round < rounds; ++round) {
        std::vector<Mean> means(groups.size());
        for (const Share& share : shares) {
            const auto nearest = std::ranges::min_element(
                groups, {}, [&](const Share& group) { return distance(share.color, group.color); });
            if (distance(share.color, nearest->color) <= reach)
                means[static_cast<std::size_t>(nearest - groups.begin())].add(share.color, share.weight);
        }
        groups.clear();
        for (const Mean& mean : means)
            if (!mean.isEmpty())
                groups.push_back(mean.share());
    }
    return groups;
}

/// Joins the two groups nearest to each other, as long as they are one colour to the eye.
void joinAlike(std::vector<Share>& groups)
{
    while (true) {
        double nearest = sameColor;
        std::array<std::size_t, 2> pair{};
        for (std::size_t one = 0; one < groups.size(); ++one)
            for (std::size_t other = one + 1; other < groups.size(); ++other)
                if (const double apart = distance(groups[one].color, groups[other].color); apart < nearest) {
                    nearest = apart;
                    pair = {one, other};
                }
        if (nearest >= sameColor)
            return;
        Mean mean;
        for (const std::size_t each : pair)
            mean.add(groups[each].color, groups[each].weight);
        groups[pair[0]] = mean.share();
        groups.erase(groups.begin() + static_cast<std::ptrdiff_t>(pair[1]));
    }
}

/// Leaves out what nobody would name: hardly visible spots, and then the least of what is too much. A colour
/// that is unlike all others counts for more than its area.
void leaveOut(std::vector<Share>& groups)
{
    double all = 0;
    for (const Share& group : groups)
        all += group.weight;
    std::erase_if(groups, [all](const Share& group) { return group.weight < leastShare * all; });
    while (groups.size() > maxStops) {
        const auto importance = [&](const Share& group) {
            double nearest = std::numeric_limits<double>::infinity();
            for (const Share& other : groups)
                if (&other != &group)
                    nearest = std::min(nearest, distance(group.color, other.color));
            return std::sqrt(group.weight) * nearest;
        };
        groups.erase(std::ranges::min_element(groups, {}, importance));
    }
}

/// A single colour and a shade of it, since a palette has two at least.
std::vector<Share> withShade(const Share& only)
{
    const bool isLight = only.color.lightness > 0.5;
    return {only, {mix(only.color, toOklab(isLight ? 0x000000 : 0xFFFFFF), 0.6), 0}};
}

} // namespace

std::vector<Color> paletteOf(const QImage& picture)
{
    const std::vector<Share> shares = sharesOf(picture);
    if (shares.empty())
        return {};
    std::vector<Share> groups = grouped(shares, seeds(shares));
    joinAlike(groups);
    leaveOut(groups);
    groups = grouped(shares, std::move(groups), ownColors);
    if (groups.size() == 1)
        groups = withShade(groups.front());
    std::ranges::sort(groups, {}, [](const Share& group) { return group.color.lightness; });
    std::vector<Color> colors;
    colors.reserve(groups.size());
    for (const Share& group : groups)
        colors.push_back(toColor(group.color));
    return colors;
}

std::vector<Color> paletteOfFile(const QString& file)
{
    return paletteOf(readPicture(file.toStdString(), side));
}

} // namespace tessel
