// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tessel {

/// What is drawn. The raw values are part of the file format.
enum class Pattern : std::uint8_t
{
    flow,
    mesh,
    plasma,
    ripple,
    aurora,
    cells,
    topo,
    image,
    whorl,
    sonar,
    mosh,
    weave,
    silk,
    metal,
    beams,
    halo,
    ribbon,
    curtain,
    nova,
    spotlight,
    exposure,
    planet,
    tiles,
    orbit,
    dawn,
    threads,
    fold,
    swell,
    smoke,
    blobs,
    gem,
    fluted,
    water,
    spiral,
    dots,
    neuro,
};

/// How a pattern spreads its tones.
enum class Ground : std::uint8_t
{
    balanced,
    dark, ///< light on a dark ground
};

/// What a pattern is made of, which decides on the cells of smooth looks.
enum class Detail : std::uint8_t
{
    fineLines, ///< needs every pixel
    soft,
};

/// All that stands fixed for a pattern.
struct PatternEntry
{
    Pattern pattern;
    std::string_view title;  ///< shown to people
    std::string_view shader; ///< its file in src/shaders/patterns, without the ending
    Ground ground;
    Detail detail;
};

/// The patterns in raw order. A new one is added here, above and as a shader.
inline constexpr std::array patternTable{
    PatternEntry{Pattern::flow, "Flow", "flow", Ground::balanced, Detail::fineLines},
    PatternEntry{Pattern::mesh, "Mesh", "mesh", Ground::balanced, Detail::fineLines},
    PatternEntry{Pattern::plasma, "Plasma", "plasma", Ground::balanced, Detail::fineLines},
    PatternEntry{Pattern::ripple, "Ripple", "ripple", Ground::balanced, Detail::fineLines},
    PatternEntry{Pattern::aurora, "Aurora", "aurora", Ground::dark, Detail::fineLines},
    PatternEntry{Pattern::cells, "Cells", "cells", Ground::balanced, Detail::fineLines},
    PatternEntry{Pattern::topo, "Topo", "topo", Ground::balanced, Detail::fineLines},
    PatternEntry{Pattern::image, "Image", "image", Ground::balanced, Detail::fineLines},
    PatternEntry{Pattern::whorl, "Whorl", "whorl", Ground::balanced, Detail::fineLines},
    PatternEntry{Pattern::sonar, "Sonar", "sonar", Ground::dark, Detail::fineLines},
    PatternEntry{Pattern::mosh, "Mosh", "mosh", Ground::balanced, Detail::fineLines},
    PatternEntry{Pattern::weave, "Weave", "weave", Ground::balanced, Detail::fineLines},
    PatternEntry{Pattern::silk, "Silk", "silk", Ground::balanced, Detail::soft},
    PatternEntry{Pattern::metal, "Metal", "metal", Ground::balanced, Detail::soft},
    PatternEntry{Pattern::beams, "Beams", "beams", Ground::dark, Detail::soft},
    PatternEntry{Pattern::halo, "Halo", "halo", Ground::dark, Detail::soft},
    PatternEntry{Pattern::ribbon, "Ribbon", "ribbon", Ground::dark, Detail::soft},
    PatternEntry{Pattern::curtain, "Curtain", "curtain", Ground::balanced, Detail::soft},
    PatternEntry{Pattern::nova, "Nova", "nova", Ground::dark, Detail::soft},
    PatternEntry{Pattern::spotlight, "Spotlight", "spotlight", Ground::dark, Detail::soft},
    PatternEntry{Pattern::exposure, "Exposure", "exposure", Ground::dark, Detail::soft},
    PatternEntry{Pattern::planet, "Planet", "planet", Ground::dark, Detail::soft},
    PatternEntry{Pattern::tiles, "Tiles", "tiles", Ground::balanced, Detail::soft},
    PatternEntry{Pattern::orbit, "Orbit", "orbit", Ground::dark, Detail::soft},
    PatternEntry{Pattern::dawn, "Dawn", "dawn", Ground::balanced, Detail::soft},
    PatternEntry{Pattern::threads, "Threads", "threads", Ground::balanced, Detail::soft},
    PatternEntry{Pattern::fold, "Fold", "fold", Ground::balanced, Detail::soft},
    PatternEntry{Pattern::swell, "Swell", "swell", Ground::balanced, Detail::soft},
    PatternEntry{Pattern::smoke, "Smoke", "smoke", Ground::balanced, Detail::soft},
    PatternEntry{Pattern::blobs, "Blobs", "blobs", Ground::balanced, Detail::soft},
    PatternEntry{Pattern::gem, "Gem", "gem", Ground::balanced, Detail::soft},
    PatternEntry{Pattern::fluted, "Fluted", "fluted", Ground::balanced, Detail::soft},
    PatternEntry{Pattern::water, "Water", "water", Ground::balanced, Detail::soft},
    PatternEntry{Pattern::spiral, "Spiral", "spiral", Ground::balanced, Detail::soft},
    PatternEntry{Pattern::dots, "Dots", "dots", Ground::balanced, Detail::soft},
    PatternEntry{Pattern::neuro, "Neuro", "neuro", Ground::dark, Detail::soft},
};
inline constexpr int patternCount = patternTable.size();

/// The entry of a pattern.
[[nodiscard]] const PatternEntry& entry(Pattern pattern);

/// All patterns in raw order.
[[nodiscard]] const std::array<Pattern, patternCount>& allPatterns();

/// The pattern with this raw value; none outside 0-35.
[[nodiscard]] std::optional<Pattern> patternFromRaw(std::int64_t raw);

/// The name shown to people, such as "Flow".
[[nodiscard]] std::string_view title(Pattern pattern);

} // namespace tessel
