// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Ordered thresholds. Construction: Bayer, "An optimum method for two-level rendition", 1973, as the bits
// of x xor y and y interleaved in reverse.

float bayerThreshold(ivec2 cell, int bits)
{
    int x = cell.x ^ cell.y;
    int rank = 0;
    for (int i = 0; i < bits; ++i)
        rank = (rank << 2) | (((x >> i) & 1) << 1) | ((cell.y >> i) & 1);
    return (float(rank) + 0.5) / float(1 << (2 * bits));
}
