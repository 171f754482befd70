// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/best_looks.h"

#include "cli/pattern_check.h"
#include "model/palette.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>

namespace tessel::cli {

namespace {

/// Places of the ramp that colours are looked up at.
constexpr int rampPlaces = 64;
/// How much of their distance counts between looks of one pattern, which differ less than their colours do.
constexpr double samePattern = 0.35;

using Ramp = std::array<Oklab, rampPlaces>;

Ramp rampOf(const Look& look)
{
    const Stops stops = resolveStops(look);
    Ramp ramp;
    for (std::size_t i = 0; i < ramp.size(); ++i) {
        const double along = static_cast<double>(i) * (stops.count - 1) / (rampPlaces - 1);
        const auto below = std::min(static_cast<std::size_t>(along), maxStops - 2);
        ramp[i] = mix(toOklab(stops.slot[below]), toOklab(stops.slot[below + 1]),
                      along - static_cast<double>(below));
    }
    return ramp;
}

/// One of the three channels of the field's colours.
Field channel(const Field& field, const Ramp& ramp, double Oklab::*member)
{
    Field result{field.size, std::vector<float>(field.tones.size())};
    std::ranges::transform(field.tones, result.tones.begin(), [&](float tone) {
        const auto place =
            static_cast<std::size_t>(std::lround(std::clamp(tone, 0.0F, 1.0F) * (rampPlaces - 1)));
        return static_cast<float>(ramp.at(place).*member);
    });
    return result;
}

template<typename Values>
double deviation(const Values& values)
{
    const auto count = static_cast<double>(values.size());
    const double mean = std::accumulate(values.begin(), values.end(), 0.0) / count;
    double squares = 0;
    for (const double value : values)
        squares += (value - mean) * (value - mean);
    return std::sqrt(squares / count);
}

/// Mean difference of cells side by side, of the deviation of all.
double roughness(const Field& field)
{
    double sum = 0;
    for (std::size_t i = 1; i < field.tones.size(); ++i)
        sum += std::abs(field.tones[i] - field.tones[i - 1]);
    return sum / (static_cast<double>(field.tones.size()) * std::max(deviation(field.tones), 1e-6));
}

double portion(double value, double none, double all)
{
    return std::clamp((value - none) / (all - none), 0.0, 1.0);
}

double distance(const Glance& one, const Glance& other)
{
    double sum = 0;
    for (std::size_t i = 0; i < one.blocks.size(); ++i)
        sum += tessel::distance(one.blocks[i], other.blocks[i]);
    return (one.pattern == other.pattern ? samePattern : 1.0) * sum / static_cast<double>(one.blocks.size());
}

} // namespace

Glance glanceAt(const Look& look, const Field& field)
{
    const Ramp ramp = rampOf(look);
    const std::vector<double> lightness = blocksOf(channel(field, ramp, &Oklab::lightness));
    const std::vector<double> greenRed = blocksOf(channel(field, ramp, &Oklab::a));
    const std::vector<double> blueYellow = blocksOf(channel(field, ramp, &Oklab::b));
    Glance glance;
    glance.pattern = look.pattern;
    for (std::size_t i = 0; i < lightness.size(); ++i)
        glance.blocks.push_back({lightness[i], greenRed[i], blueYellow[i]});

    const std::array<double, 5> fifths = fifthsOf(field);
    const double allowed = entry(look.pattern).ground == Ground::dark ? 0.75 : 0.6;
    const double balance = portion(*std::ranges::max_element(fifths), 0.95, allowed);
    const double form = portion(deviation(lightness), 0.02, 0.1);
    const double color = portion(std::hypot(deviation(greenRed), deviation(blueYellow)), -0.04, 0.06);
    const double whole = portion(roughness(field), 0.9, 0.35);
    glance.score = balance * form * color * whole;
    return glance;
}

std::vector<std::size_t> chooseBest(const std::vector<Glance>& glances, std::size_t count)
{
    std::vector<std::size_t> chosen;
    std::vector<double> nearest(glances.size(), 1.0);
    while (chosen.size() < std::min(count, glances.size())) {
        std::size_t best = 0;
        double most = -1;
        for (std::size_t i = 0; i < glances.size(); ++i) {
            if (nearest[i] >= 0 && nearest[i] * glances[i].score > most) {
                most = nearest[i] * glances[i].score;
                best = i;
            }
        }
        chosen.push_back(best);
        for (std::size_t i = 0; i < glances.size(); ++i)
            nearest[i] = std::min(nearest[i], distance(glances[i], glances[best]));
        nearest[best] = -1; // is not chosen again
    }
    return chosen;
}

} // namespace tessel::cli
