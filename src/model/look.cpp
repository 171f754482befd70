// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/look.h"

namespace tessel {

namespace {

constexpr std::array<std::string_view, ditherCount> ditherTitles{
    "Smooth", "Poster", "Bayer 4", "Bayer 8", "Noise", "Halftone", "Lines", "Diamond", "ASCII", "Benday"};

constexpr std::array<std::string_view, 2> edgeTitles{"Left", "Right"};

constexpr std::array<Dither, ditherCount> dithersInRawOrder()
{
    std::array<Dither, ditherCount> all{};
    for (std::size_t raw = 0; raw < all.size(); ++raw)
        all[raw] = static_cast<Dither>(raw);
    return all;
}

/// Builds one hash from values in the order in which they are added.
class Hasher
{
public:
    /// Floats need no special care: std::hash gives 0.0 and -0.0, being equal, the same hash.
    template<typename Value>
    void add(const Value& value)
    {
        constexpr std::size_t spread = 0x9E3779B9; // 2^32 divided by the golden ratio
        m_result ^= std::hash<Value>{}(value) + spread + (m_result << 6U) + (m_result >> 2U);
    }

    [[nodiscard]] std::size_t hash() const { return m_result; }

private:
    std::size_t m_result = 0;
};

} // namespace

const std::array<Dither, ditherCount>& allDithers()
{
    static constexpr auto all = dithersInRawOrder();
    return all;
}

std::optional<Dither> ditherFromRaw(std::int64_t raw)
{
    if (raw < 0 || raw >= ditherCount)
        return std::nullopt;
    return static_cast<Dither>(raw);
}

std::string_view title(Dither dither)
{
    return ditherTitles.at(static_cast<std::size_t>(dither));
}

std::string_view title(Edge edge)
{
    return edgeTitles.at(static_cast<std::size_t>(edge));
}

} // namespace tessel

std::size_t std::hash<tessel::Look>::operator()(const tessel::Look& look) const noexcept
{
    tessel::Hasher hasher;
    hasher.add(look.pattern);
    hasher.add(look.palette);
    hasher.add(look.dither);
    hasher.add(look.pixel);
    hasher.add(look.levels);
    hasher.add(look.scale);
    hasher.add(look.warp);
    hasher.add(look.speed);
    hasher.add(look.contrast);
    hasher.add(look.offset);
    hasher.add(look.grain);
    hasher.add(look.vignette);
    hasher.add(look.invert);
    hasher.add(look.seed);
    hasher.add(look.imagePath.has_value());
    if (look.imagePath)
        hasher.add(*look.imagePath);
    hasher.add(look.custom.has_value());
    if (look.custom) {
        hasher.add(look.custom->size());
        for (const tessel::Color color : *look.custom)
            hasher.add(color);
    }
    return hasher.hash();
}

std::size_t std::hash<tessel::Preset>::operator()(const tessel::Preset& preset) const noexcept
{
    tessel::Hasher hasher;
    hasher.add(preset.id);
    hasher.add(preset.name);
    hasher.add(preset.look);
    hasher.add(preset.motion);
    return hasher.hash();
}
