// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace tessel {

/// The threshold of a place in Bayer's matrix, repeated without end: (rank + 1/2) / 4^bits, between 0 and 1.
/// \param bits of the matrix's side: 2 for 4 x 4, 3 for 8 x 8
constexpr double bayerThreshold(unsigned x, unsigned y, unsigned bits)
{
    unsigned rank = 0;
    for (unsigned bit = 0; bit < bits; ++bit)
        rank = rank << 2U | (((x ^ y) >> bit) & 1U) << 1U | ((y >> bit) & 1U);
    return (rank + 0.5) / (1U << 2U * bits);
}

} // namespace tessel
