// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Rounded Voronoi cells: bright domed centres, dark gutters of even width, points wandering.

#define kPointSpin k[0]
#define kBendSpin k[1]
#define kPlaces k[2]
#define kTurn k[3].xy
#define kSize k[3].z

void prepare(inout vec4 k[8])
{
    kPointSpin = spin(0.22);
    kBendSpin = spin(0.13);
    kPlaces = vec4(seedOffset(0), seedOffset(1));
    float size = (1.35 + 0.9 * seedRandom(9)) * pow(coarseness(), -0.4);
    float turn = tau * seedRandom(8);
    kTurn = vec2(cos(turn) * size, sin(turn) * size);
    kSize = size;
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 bend = vec2(noise(p * 0.7 + kPlaces.xy, kBendSpin), noise(p * 0.7 + kPlaces.zw, kBendSpin));
    vec2 q = rotate(p + 0.22 * lookWarp * bend, kTurn) + kPlaces.zw;
    ivec2 home = ivec2(floor(q));
    vec2 inCell = q - floor(q);
    float jitter = 0.72;

    // The nearest point and, by the same round, the distance to the nearest two borders, blended: where they
    // meet the cell's corner is rounded off.
    vec2 nearest = vec2(0.0);
    float nearestDistance = 64.0;
    uint bits = 0u;
    for (int y = -1; y <= 1; ++y) {
        for (int x = -1; x <= 1; ++x) {
            ivec2 step = ivec2(x, y);
            vec2 d = vec2(step) + latticePoint(home + step, jitter, kPointSpin) - inCell;
            float distance = dot(d, d);
            bool closer = distance < nearestDistance;
            nearest = closer ? d : nearest;
            bits = closer ? hashBits(home + step) : bits;
            nearestDistance = closer ? distance : nearestDistance;
        }
    }
    float border = 8.0;
    for (int y = -1; y <= 1; ++y) {
        for (int x = -1; x <= 1; ++x) {
            ivec2 step = ivec2(x, y);
            vec2 d = vec2(step) + latticePoint(home + step, jitter, kPointSpin) - inCell;
            vec2 across = d - nearest;
            float apart = dot(across, across);
            float toBorder = apart < 1e-5 ? 8.0 : dot(0.5 * (d + nearest), across * inversesqrt(apart));
            border = smoothMin(border, toBorder, 0.14);
        }
    }
    float edge = border - 0.055;
    float width = cellWidth() * kSize;
    float own = unit(bits);
    float dome = sqrt(saturate(edge * 2.6));
    float body = (0.34 + 0.42 * own) * (0.55 + 0.6 * dome);
    float spot = bell(length(nearest), 0.34) * (0.25 + 0.35 * own);
    return mix(0.04, body + spot, inside(-edge, max(width, 0.02)));
}
