// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tessel {

/// The colours that the tones of a smooth look are shown in, with the ordered noise of half a bit that hides
/// the banding of 8-bit channels.
class SmoothColors
{
public:
    /// Tones go from 0 to this.
    static constexpr std::int16_t highestTone = 0x3FFF;

    /// \param ramp red, green and blue, 0 to 1, of the tones from 0 to the highest
    /// \param offset shift along the ramp
    void set(std::span<const float> ramp, float offset);

    /// Tables of the noise in a row of pixels, for every fourth of them from the left. A tone's colour,
    /// 0xFFRRGGBB, stands at place().
    using Row = std::array<const std::uint32_t*, 4>;
    [[nodiscard]] Row row(int y) const
    {
        const std::uint32_t* first = &m_tables[static_cast<std::size_t>(y) % noiseSide * noiseSide * length];
        return {first, first + length, first + 2 * length, first + 3 * length};
    }
    [[nodiscard]] static constexpr std::uint16_t place(std::int16_t tone)
    {
        return static_cast<std::uint16_t>(static_cast<std::uint16_t>(tone) >> shift);
    }

    /// How far apart two tones are, on average, whose colours are a level of a channel apart.
    [[nodiscard]] float tonesPerLevel() const { return m_tonesPerLevel; }

private:
    static constexpr unsigned shift = 4;
    static constexpr std::size_t length = (highestTone >> shift) + 1;
    static constexpr unsigned noiseSide = 4;

    std::vector<std::uint32_t> m_tables; ///< of each place in the noise, row by row, the colours
    float m_tonesPerLevel = 1.0F;
};

} // namespace tessel
