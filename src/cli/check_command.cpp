// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_line.h"
#include "cli/headless.h"
#include "cli/pattern_check.h"
#include "cli/progress.h"
#include "model/palette.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <memory>
#include <numeric>
#include <stdexcept>

namespace tessel::cli {

namespace {

struct CheckOptions
{
    std::string pattern;
    int seeds = 16;
    bool palettes = false;
    bool json = false;
};

struct CheckedPattern
{
    Pattern pattern;
    PatternMeasures measures;
    std::vector<std::string> broken;
};

/// The patterns whose title is `name`, in any case; all without a name.
std::vector<Pattern> patternsNamed(const std::string& name)
{
    if (name.empty())
        return {allPatterns().begin(), allPatterns().end()};
    for (const Pattern pattern : allPatterns())
        if (CLI::detail::to_lower(std::string(title(pattern))) == CLI::detail::to_lower(name))
            return {pattern};
    throw std::runtime_error(name + " is not a pattern; `tessel list patterns` prints them");
}

const Palette& paletteAt(int index)
{
    return builtInPalettes()[static_cast<std::size_t>(index)];
}

nlohmann::ordered_json toJson(const CheckedPattern& checked)
{
    const PatternMeasures& m = checked.measures;
    return {{"name", title(checked.pattern)}, {"fifths", m.fifths},
            {"largestFifth", m.largestFifth}, {"leastDark", m.leastDark},
            {"mostDark", m.mostDark},         {"leastBright", m.leastBright},
            {"seedDistance", m.seedDistance}, {"pictureDistance", m.pictureDistance},
            {"frameChange", m.frameChange},   {"cellChange", m.cellChange},
            {"wrapChange", m.wrapChange},     {"seenToMove", m.seenToMove},
            {"restless", m.restless},         {"jump", m.jump},
            {"wrapJump", m.wrapJump},         {"agreement", m.agreement},
            {"nonFinite", m.nonFinite},       {"nanosecondsPerCell", m.nanoseconds},
            {"complaints", checked.broken}};
}

void printText(const std::vector<CheckedPattern>& all)
{
    std::printf("%-10s %-24s %9s %9s %6s %8s %7s %7s %7s %6s %6s %6s %6s %7s %5s %6s\n", "", "fifths %",
                "dark %", "bright %", "seeds", "pictures", "frame", "cell", "wrap", "moves", "fidget", "jump",
                "wraps", "sizes", "bad", "ns");
    std::printf("%-10s %-24s %9s %9s %6s %8.3f\n", "floor", "", "", "", "", pictureFloor);
    for (const CheckedPattern& checked : all) {
        const PatternMeasures& m = checked.measures;
        std::printf("%-10s", title(checked.pattern).data());
        for (const double share : m.fifths)
            std::printf(" %3.0f", 100 * share);
        std::printf("      %3.0f-%3.0f %9.1f %6.3f %8.3f %7.4f %7.3f %7.4f %6.3f %6.3f %6.3f %6.3f %7.3f "
                    "%5ld %6.1f\n",
                    100 * m.leastDark, 100 * m.mostDark, 100 * m.leastBright, m.seedDistance,
                    m.pictureDistance, m.frameChange, m.cellChange, m.wrapChange, m.seenToMove, m.restless,
                    m.jump, m.wrapJump, m.agreement, m.nonFinite, m.nanoseconds);
        for (const std::string& sentence : checked.broken)
            std::printf("    %s\n", sentence.c_str());
    }
}

/// The places of all palettes, those first whose neighbouring stops look most alike.
std::vector<int> palettesByDistance()
{
    std::vector<int> indices(builtInPalettes().size());
    std::iota(indices.begin(), indices.end(), 0);
    std::ranges::stable_sort(indices, {}, [](int index) { return nearestStops(paletteAt(index)); });
    return indices;
}

void printPalettes(const std::vector<int>& indices)
{
    std::printf("%5.3f is the floor; the colours of palettes with a * never change\n", stopFloor);
    for (const int index : indices)
        std::printf("%5.3f %3d %c %s\n", nearestStops(paletteAt(index)), index, isFixed(index) ? '*' : ' ',
                    paletteAt(index).name.data());
}

void checkPalettes(const CheckOptions& options)
{
    const std::vector<int> indices = palettesByDistance();
    if (options.json) {
        nlohmann::ordered_json list = nlohmann::ordered_json::array();
        for (const int index : indices)
            list.push_back({{"index", index},
                            {"name", paletteAt(index).name},
                            {"nearestStops", nearestStops(paletteAt(index))},
                            {"fixed", isFixed(index)}});
        std::cout << list.dump() << '\n';
    } else {
        printPalettes(indices);
    }
    const auto failed = std::ranges::count_if(
        indices, [](int index) { return !isFixed(index) && nearestStops(paletteAt(index)) < stopFloor; });
    if (failed > 0)
        throw std::runtime_error(std::to_string(failed) +
                                 " of the palettes that may change have two stops that look alike");
}

void checkPatterns(const CheckOptions& options)
{
    const std::vector<Pattern> patterns = patternsNamed(options.pattern);
    Headless headless;
    std::vector<CheckedPattern> all;
    std::size_t failed = 0;
    {
        Progress progress("Checking", static_cast<int>(patterns.size()));
        for (const Pattern pattern : patterns) {
            const PatternMeasures measures =
                measure(patternSource(headless.encoder(), pattern), options.seeds);
            all.push_back({pattern, measures, complaints(pattern, measures)});
            failed += all.back().broken.empty() ? 0U : 1U;
            progress.report(static_cast<int>(all.size()));
        }
    }
    if (options.json) {
        nlohmann::ordered_json list = nlohmann::ordered_json::array();
        for (const CheckedPattern& checked : all)
            list.push_back(toJson(checked));
        std::cout << list.dump() << '\n';
    } else {
        printText(all);
    }
    if (failed > 0)
        throw std::runtime_error(std::to_string(failed) + " of " + std::to_string(all.size()) +
                                 " patterns break a limit");
}

} // namespace

void addCheckCommand(CLI::App& app)
{
    auto options = std::make_shared<CheckOptions>();
    CLI::App& command =
        *app.add_subcommand("check", "Measure the patterns or palettes and hold them to their limits");
    command.add_option("--pattern", options->pattern, "Only this one, such as Halo")->type_name("NAME");
    command.add_option("--seeds", options->seeds, "How many seeds, from 0 [16]")
        ->check(CLI::Range(2, 100))
        ->type_name("N");
    command.add_flag("--json", options->json, "As a JSON array of objects");
    command.add_flag("--palettes", options->palettes, "The palettes instead: how far apart their stops look")
        ->excludes(command.get_option("--pattern"))
        ->excludes(command.get_option("--seeds"));
    command.callback([options] { options->palettes ? checkPalettes(*options) : checkPatterns(*options); });
}

} // namespace tessel::cli
