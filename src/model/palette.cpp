// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/palette.h"

#include "model/oklab.h"

#include <algorithm>
#include <cstdio>
#include <limits>

namespace tessel {

namespace {

constexpr Color rgbBits = 0xFFFFFF;

std::vector<PaletteGroup> buildGroups()
{
    std::vector<PaletteGroup> groups;
    const std::span<const Palette> palettes = builtInPalettes();
    for (std::size_t index = corePaletteCount; index < palettes.size(); ++index) {
        const std::string_view name = palettes[index].group;
        if (groups.empty() || groups.back().name != name)
            groups.push_back({name, {}});
        groups.back().indices.push_back(static_cast<int>(index));
    }
    return groups;
}

const Palette& builtInPalette(const Look& look)
{
    return builtInPalettes()[static_cast<std::size_t>(builtInIndex(look))];
}

bool hasOwnStops(const Look& look)
{
    return look.custom && !look.custom->empty();
}

} // namespace

const std::vector<PaletteGroup>& paletteGroups()
{
    static const std::vector<PaletteGroup> groups = buildGroups();
    return groups;
}

bool isFixed(int index)
{
    return index < corePaletteCount ||
           std::ranges::any_of(paletteGroups(),
                               [index](const PaletteGroup& group) { return group.indices.front() == index; });
}

double nearestStops(const Palette& palette)
{
    double nearest = std::numeric_limits<double>::infinity();
    for (std::size_t i = 1; i < palette.hex.size(); ++i)
        nearest = std::min(nearest, distance(toOklab(palette.hex[i - 1]), toOklab(palette.hex[i])));
    return nearest;
}

int builtInIndex(const Look& look)
{
    // A negative index, which only code can set, counts as 0, as it does in a file.
    const auto count = static_cast<std::int64_t>(builtInPalettes().size());
    return static_cast<int>(std::max<std::int64_t>(look.palette, 0) % count);
}

std::string_view paletteName(const Look& look)
{
    return hasOwnStops(look) ? std::string_view("Custom") : builtInPalette(look).name;
}

std::string displayTitle(const Look& look)
{
    std::string text(title(look.pattern));
    text += ' ';
    text += paletteName(look);
    return text;
}

Stops resolveStops(const Look& look)
{
    const std::span<const Color> all =
        hasOwnStops(look) ? std::span<const Color>(*look.custom) : builtInPalette(look).hex;
    const std::span<const Color> drawn = all.first(std::min(all.size(), maxStops));

    Stops stops;
    stops.count = std::max(static_cast<int>(drawn.size()), 2); // a single stop stands twice
    for (std::size_t slot = 0; slot < maxStops; ++slot)
        stops.slot[slot] = drawn[std::min(slot, drawn.size() - 1)] & rgbBits;
    return stops;
}

std::string hexText(Color color)
{
    std::array<char, 7> text{};
    const int length = std::snprintf(text.data(), text.size(), "%06X", color & rgbBits);
    return {text.data(), static_cast<std::size_t>(length)};
}

} // namespace tessel
