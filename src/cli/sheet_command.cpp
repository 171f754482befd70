// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/best_looks.h"
#include "cli/command_line.h"
#include "cli/contact_sheet.h"
#include "cli/headless.h"
#include "cli/look_source.h"
#include "cli/options.h"
#include "cli/output.h"
#include "cli/progress.h"
#include "model/look_json.h"
#include "model/palette.h"
#include "model/shuffle.h"

#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

namespace tessel::cli {

namespace {

/// Between the desktop's measure, at which the cells of a small tile vanish, and the thumbnail's, at which
/// large cells swallow the picture.
constexpr float sheetReference = 900.0F;

struct SheetOptions
{
    std::string kind;
    std::string look;
    PixelSize tile{320, 180};
    std::uint64_t randomSeed = 1;
    std::optional<int> count;
    std::string out;
    double time = 0.0;
    float reference = sheetReference;
};

struct SheetEntry
{
    Look look;
    std::string label;
    double time = 0.0;
};

/// How many random looks a sheet shows, and how many the best are chosen from.
constexpr int shuffleCount = 100;
constexpr int bestOf = 500;
constexpr std::size_t bestCount = 24;
/// The size and measure at which looks are judged: the desktop's composition, small.
constexpr PixelSize glanceSize{384, 216};

constexpr int motionFrames = 12;
constexpr double motionStep = 0.5; // seconds

std::vector<SheetEntry> patternEntries(const Look& base)
{
    std::vector<SheetEntry> entries;
    for (const Pattern pattern : allPatterns()) {
        Look look = base;
        look.pattern = pattern;
        entries.push_back({look, std::string(title(pattern))});
    }
    return entries;
}

std::vector<SheetEntry> ditherEntries(const Look& base)
{
    std::vector<SheetEntry> entries;
    for (const Dither dither : allDithers()) {
        Look look = base;
        look.dither = dither;
        entries.push_back({look, std::string(title(dither))});
    }
    return entries;
}

std::vector<SheetEntry> paletteEntries(const Look& base)
{
    std::vector<SheetEntry> entries;
    for (std::size_t i = 0; i < builtInPalettes().size(); ++i) {
        Look look = base;
        look.custom.reset();
        look.palette = static_cast<std::int64_t>(i);
        entries.push_back({look, std::to_string(i) + ' ' + std::string(builtInPalettes()[i].name)});
    }
    return entries;
}

std::vector<SheetEntry> motionEntries(const Look& base)
{
    std::vector<SheetEntry> entries;
    for (int i = 0; i < motionFrames; ++i) {
        const double seconds = motionStep * i;
        entries.push_back({base, QString::number(seconds, 'f', 1).toStdString() + " s",
                           seconds * static_cast<double>(base.speed)});
    }
    return entries;
}

std::vector<SheetEntry> shuffleEntries(const Look& base, const SheetOptions& options, int count)
{
    const RandomSource random = seededSource(options.randomSeed);
    std::vector<SheetEntry> entries;
    for (int i = 0; i < count; ++i) {
        const Look look = randomLook(random, base.imagePath);
        entries.push_back({look, std::to_string(i + 1) + ' ' + displayTitle(look) + ", " +
                                     std::string(title(look.dither))});
    }
    return entries;
}

std::vector<SheetEntry> makeEntries(const SheetOptions& options)
{
    const Look base = readLook(options.look);
    if (options.kind == "patterns")
        return patternEntries(base);
    if (options.kind == "dithers")
        return ditherEntries(base);
    if (options.kind == "palettes")
        return paletteEntries(base);
    if (options.kind == "motion")
        return motionEntries(base);
    return shuffleEntries(base, options,
                          options.count.value_or(options.kind == "best" ? bestOf : shuffleCount));
}

/// Those of the entries that are best and differ most.
std::vector<SheetEntry> bestEntries(Headless& headless, const std::vector<SheetEntry>& entries)
{
    std::vector<Glance> glances;
    Progress progress("Judging", static_cast<int>(entries.size()));
    for (const SheetEntry& entry : entries) {
        const std::optional<Field> field = renderField(headless.encoder(), {.previous = entry.look,
                                                                            .current = entry.look,
                                                                            .width = glanceSize.width,
                                                                            .height = glanceSize.height});
        if (!field)
            throw std::runtime_error("the field of " + entry.label + " could not be drawn");
        glances.push_back(glanceAt(entry.look, *field));
        progress.report(static_cast<int>(glances.size()));
    }
    std::vector<SheetEntry> best;
    for (const std::size_t index : chooseBest(glances, bestCount)) {
        best.push_back(entries[index]);
        best.back().label = std::to_string(best.size()) + ' ' + displayTitle(best.back().look) + ", " +
                            std::string(title(best.back().look.dither));
    }
    return best;
}

Tile drawTile(Headless& headless, const SheetEntry& entry, const SheetOptions& options)
{
    return {headless.draw({.previous = entry.look,
                           .current = entry.look,
                           .width = options.tile.width,
                           .height = options.tile.height,
                           .time = wrappedPhase(options.time + entry.time),
                           .reference = options.reference}),
            entry.label};
}

void drawSheet(const SheetOptions& options)
{
    const std::string out = options.out.empty() ? options.kind + ".png" : options.out;
    refuseTerminal(out);
    std::vector<SheetEntry> entries = makeEntries(options);
    Headless headless;
    if (options.kind == "best")
        entries = bestEntries(headless, entries);
    std::vector<Tile> tiles;
    {
        Progress progress("Drawing", static_cast<int>(entries.size()));
        for (const SheetEntry& entry : entries) {
            tiles.push_back(drawTile(headless, entry, options));
            progress.report(static_cast<int>(tiles.size()));
        }
    }
    headless.warnOfPhoto(entries.front().look);
    if (options.kind == "best" && out != "-")
        for (const SheetEntry& entry : entries)
            std::cout << encodeLook(entry.look) << '\n';
    writePicture(layOutSheet(tiles), std::nullopt, out);
}

} // namespace

void addSheetCommand(CLI::App& app)
{
    auto options = std::make_shared<SheetOptions>();
    CLI::App& command = *app.add_subcommand("sheet", "Draw a labelled contact sheet into a PNG file");
    command
        .add_option("KIND", options->kind,
                    "patterns, dithers or palettes: one look in each of them; motion: one look over six "
                    "seconds; shuffles: random looks; best: the 24 best of 500, also printed, one a line")
        ->required()
        ->check(
            CLI::IsMember({"patterns", "dithers", "palettes", "motion", "shuffles", "best"}).description(""));
    addLookArgument(command, options->look);
    command.add_option("--tile", options->tile, "Size of a tile in pixels [320x180]")->type_name("WxH");
    command.add_option("--random-seed", options->randomSeed, "Shuffle other looks for another number [1]")
        ->type_name("N");
    command
        .add_option("--count", options->count, "How many shuffles [100], or to choose the best from [500]")
        ->check(CLI::Range(1, 1000))
        ->type_name("N");
    command.add_option("--out", options->out, "Where to write, - for standard output [KIND.png]")
        ->type_name("FILE");
    addTimeOption(command, options->time);
    addReferenceOption(command, options->reference, "900");
    command.callback([options] { drawSheet(*options); });
}

} // namespace tessel::cli
