// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A calm mesh gradient: six drifting anchors of different tone, blended by distance. Large areas, no texture.

#define kAnchorPlace(i) k[i].xy
#define kAnchorTone(i) k[i].z
#define kAnchorReach(i) k[i].w
#define kSpin k[6]
#define kPlace k[7].xy
#define kForm k[7].z

void prepare(inout vec4 k[8])
{
    // Position, tone and reach of each anchor. They stand on a loose ring with one near the middle, so that
    // no seed leaves half of the picture empty; dark and light take turns, so that every seed has both.
    // Zoom spreads or gathers them less than it zooms, or a far view would show one small patch.
    float gather = pow(lookScale, 0.25);
    vec2 reach = 0.82 * gather * halfExtent();
    float ground = gather / lookScale;
    float start = seedRandom(20);
    float turn = seedRandom(21) < 0.5 ? -1.0 : 1.0;
    for (int i = 0; i < 6; ++i) {
        float angle = turn * tau * (start + float(i) * 0.2 + 0.11 * seedRandom(i));
        float away = i == 5 ? 0.2 : 0.62 + 0.38 * seedRandom(i + 6);
        vec2 home = away * reach * vec2(cos(angle), sin(angle));
        float rate = (i - (i / 2) * 2 == 0 ? 1.0 : -1.0) * (0.28 + 0.18 * seedRandom(i + 12));
        vec2 drift = ground * loopCircle(rate) * (0.2 + 0.12 * seedRandom(i + 30));
        float tone = i == 0 ? 0.0 : i == 1 ? 0.75 : i == 2 ? 0.2 : i == 3 ? 1.0 : 0.5;
        kAnchorPlace(i) = home + drift;
        kAnchorTone(i) = tone;
        kAnchorReach(i) = ground * (0.75 + 0.5 * seedRandom(i + 50));
    }
    kSpin = spin(0.24);
    kPlace = seedOffset(30);
    kForm = 0.13 * plainness();
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 bend = vec2(noise(p * 0.55 + kPlace, kSpin), noise(p * 0.55 + kPlace.yx + 31.0, kSpin));
    p += 0.34 * lookWarp * bend;
    float tones = 0.0;
    float weights = 1e-4;
    for (int i = 0; i < 6; ++i) {
        vec2 d = (p - kAnchorPlace(i)) / kAnchorReach(i);
        // Steep enough that each anchor rules its own ground, smooth enough that no border shows.
        float weight = exp(-1.9 * dot(d, d)) + 0.004;
        tones += weight * kAnchorTone(i);
        weights += weight;
    }
    float tone = (tones / weights - 0.5) * 1.4 + 0.5;
    // In few flat steps each anchor lies in shells, as an agate does.
    float shell = 4.0 * abs(fract(3.0 * tone + 0.48 * bend.x - 0.32 * bend.y) - 0.5) - 1.0;
    return tone + kForm * shell * (1.5 - 0.5 * shell * shell);
}
