// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/pattern.h"

namespace tessel {

namespace {

constexpr std::array<Pattern, patternCount> inRawOrder()
{
    std::array<Pattern, patternCount> all{};
    for (std::size_t raw = 0; raw < all.size(); ++raw)
        all[raw] = static_cast<Pattern>(raw);
    return all;
}

constexpr bool tableIsInRawOrder()
{
    for (std::size_t raw = 0; raw < patternTable.size(); ++raw)
        if (patternTable[raw].pattern != static_cast<Pattern>(raw))
            return false;
    return true;
}
static_assert(tableIsInRawOrder());

} // namespace

const PatternEntry& entry(Pattern pattern)
{
    return patternTable.at(static_cast<std::size_t>(pattern));
}

const std::array<Pattern, patternCount>& allPatterns()
{
    static constexpr auto all = inRawOrder();
    return all;
}

std::optional<Pattern> patternFromRaw(std::int64_t raw)
{
    if (raw < 0 || raw >= patternCount)
        return std::nullopt;
    return static_cast<Pattern>(raw);
}

std::string_view title(Pattern pattern)
{
    return entry(pattern).title;
}

} // namespace tessel
