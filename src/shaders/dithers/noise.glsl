// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Blue-noise thresholds, one per cell: even everywhere, regular nowhere.

uniform sampler2D uBlueNoise; // 64 x 64, tiles without a seam

vec3 shade(vec2 position)
{
    float rank = texelFetch(uBlueNoise, ivec2(position) & 63, 0).r;
    return pick(inksAt(position), rank * (255.0 / 256.0) + 0.5 / 256.0);
}
