// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "shaders/shaders.h"

#include <QFile>
#include <QString>

#include <array>
#include <initializer_list>
#include <stdexcept>

// Resources of a static library are registered by a function of the global namespace.
static void registerResources()
{
    Q_INIT_RESOURCE(shaders);
}

namespace tessel::shaders {

namespace {

std::string readFile(const std::string& name)
{
    static const bool registered = (registerResources(), true);
    Q_UNUSED(registered);
    QFile file(QString::fromStdString(":/shaders/" + name + ".glsl"));
    if (!file.open(QIODevice::ReadOnly))
        throw std::logic_error("the program lacks its shader " + name);
    return file.readAll().toStdString();
}

std::string fileOf(Pattern pattern)
{
    return "patterns/" + std::string(entry(pattern).shader);
}

std::string fileOf(Dither dither)
{
    static constexpr std::array<const char*, ditherCount> names = {"smooth", "posterize", "bayer4", "bayer8",
                                                                   "noise",  "halftone",  "lines",  "diamond",
                                                                   "ascii",  "benday"};
    return std::string("dithers/") + names.at(static_cast<std::size_t>(dither));
}

enum class Stage : std::uint8_t
{
    vertex,
    fragment
};

/// Assembles one stage: dialect, switches, then the files in the order given.
std::string assemble(Dialect dialect, Stage stage, std::string_view switches,
                     std::initializer_list<std::string> files)
{
    std::string text = dialect == Dialect::glsl330
                           ? "#version 330 core\n"
                           : "#version 300 es\nprecision highp float;\nprecision highp int;\n"
                             "precision highp sampler2D;\nprecision highp usampler2D;\n";
    // Both stages share the declarations of what is hoisted; only the direction differs.
    text += stage == Stage::vertex ? "#define out_hoisted flat out\n" : "#define in_hoisted flat in\n";
    text += "const float rampLength = " + std::to_string(rampLength) + ".0;\n";
    text += switches;
    for (const std::string& file : files)
        text += readFile(file);
    return text;
}

constexpr std::string_view patternSwitch = "#define HAS_PATTERN\n";
constexpr std::string_view inkSwitch = "#define HAS_INKS\n";

/// Which patterns are light on a dark ground, for the ground of characters.
std::string groundTable()
{
    std::string text = "const bool lightOnDark[] = bool[](";
    for (const PatternEntry& entry : patternTable)
        text += std::string(&entry == patternTable.data() ? "" : ",") +
                (entry.ground == Ground::dark ? "true" : "false");
    return text + ");\n";
}

std::string inkSwitches(Dither dither)
{
    return std::string(inkSwitch) + (dither == Dither::ascii ? "#define GLYPH_INKS\n" + groundTable() : "");
}

/// Draws colours of the palette's ramp, which of them is decided by the file.
Source colors(const std::string& file, Dialect dialect)
{
    static constexpr std::string_view switches = "#define HAS_STOPS\n";
    return {assemble(dialect, Stage::vertex, switches, {"prelude", "oklab", "vmain"}),
            assemble(dialect, Stage::fragment, switches, {"prelude", "position", "oklab", "ramp", file})};
}

} // namespace

DitherKind kind(Dither dither)
{
    switch (dither) {
    case Dither::smooth:
        return DitherKind::continuous;
    case Dither::posterize:
    case Dither::bayer4:
    case Dither::bayer8:
    case Dither::noise:
        return DitherKind::cell;
    default:
        return DitherKind::screen;
    }
}

Source field(Pattern pattern, FieldPart part, Dialect dialect)
{
    const std::string file = fileOf(pattern);
    const std::string switches =
        std::string(patternSwitch) + (part == FieldPart::tiles ? "#define TILES\n" : "");
    return {assemble(dialect, Stage::vertex, switches, {"prelude", "noise", "sdf", file, "vmain"}),
            assemble(dialect, Stage::fragment, switches,
                     {"prelude", "position", "noise", "sdf", file, "tone", "ffield"})};
}

Source inks(Dither dither, Dialect dialect)
{
    const std::string switches = inkSwitches(dither);
    std::string fragment = kind(dither) == DitherKind::screen
                               ? assemble(dialect, Stage::fragment, switches,
                                          {"prelude", "position", "noise", "ink_pair", "inks", "tone_fetch",
                                           "inks_compute", "finks"})
                               : assemble(dialect, Stage::fragment, switches,
                                          {"prelude", "position", "ink_pair", "inks", "tone_fetch",
                                           "inks_compute", "bayer", fileOf(dither), "fmain"});
    return {assemble(dialect, Stage::vertex, switches, {"prelude", "vmain"}), std::move(fragment)};
}

Source ramp(Dialect dialect)
{
    return colors("framp", dialect);
}

Source steps(Dialect dialect)
{
    return colors("fsteps", dialect);
}

Source composite(Dither dither, Dialect dialect)
{
    if (kind(dither) != DitherKind::screen)
        return {assemble(dialect, Stage::vertex, "", {"prelude", "vmain"}),
                assemble(dialect, Stage::fragment, "", {"position", "copy", "fmain"})};
    const std::string switches = dither == Dither::ascii ? inkSwitches(dither) : std::string();
    return {assemble(dialect, Stage::vertex, switches, {"prelude", "vmain"}),
            assemble(dialect, Stage::fragment, switches,
                     {"prelude", "position", "ink_pair", "inks_fetch", "screen", fileOf(dither), "fmain"})};
}

Source map(Dither dither, Dialect dialect)
{
    std::string fragment =
        dither == Dither::ascii
            ? assemble(dialect, Stage::fragment, "",
                       {"prelude", "position", "ink_pair", "map_glyphs", fileOf(dither), "fmap_glyphs"})
            : assemble(dialect, Stage::fragment, "",
                       {"prelude", "position", "map_inks", "screen", fileOf(dither), "fmap"});
    return {assemble(dialect, Stage::vertex, "", {"prelude", "vmain"}), std::move(fragment)};
}

Source direct(Pattern pattern, Dither dither, Dialect dialect)
{
    const std::string switches = std::string(patternSwitch) + inkSwitches(dither);
    const std::string file = fileOf(pattern);
    return {assemble(dialect, Stage::vertex, switches, {"prelude", "noise", "sdf", file, "vmain"}),
            assemble(dialect, Stage::fragment, switches,
                     {"prelude", "position", "noise", "sdf", file, "tone", "ink_pair", "inks", "inks_compute",
                      "bayer", "screen", fileOf(dither), "fmain"})};
}

} // namespace tessel::shaders
