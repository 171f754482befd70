// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A wall of rounded tiles, each with its own tone and a bevel lit from above; slow waves of light pass over
// it, tile by tile. Seeds lay them as squares of two sizes or as bricks.

#define kSpin k[0]
#define kPlaces k[1]
#define kTurn k[2].xy
#define kSize k[2].z
#define kLargeShare k[2].w // of the blocks; above 1 for bricks
#define kLight k[3].xy
#define kCorner k[3].z
#define kContrast k[3].w
#define kAlong k[4].xy
#define kClock k[4].z
#define kPhase k[4].w
#define kGrout k[5].x // half the width of what is left between tiles

void prepare(inout vec4 k[8])
{
    kSpin = spin(0.16);
    kPlaces = vec4(seedOffset(0), seedOffset(1));
    float turn = (seedRandom(4) < 0.6 ? 0.0 : 0.25 * pi) + 0.3 * (seedRandom(5) - 0.5);
    float size = (2.5 + 1.5 * seedRandom(6)) * pow(coarseness(), -0.5);
    bool bricks = seedRandom(12) < 0.3;
    // A share above 1 stands for bricks.
    kTurn = vec2(cos(turn), sin(turn));
    kSize = size;
    kLargeShare = bricks ? 2.0 : 0.2 + 0.45 * seedRandom(7);
    float light = pi * (0.5 + 0.5 * (seedRandom(8) - 0.5)) - turn;
    kLight = vec2(cos(light), sin(light));
    kCorner = 0.08 + 0.2 * seedRandom(9);
    kContrast = 0.18 + 0.3 * seedRandom(13);
    float wave = tau * seedRandom(10);
    vec2 along = (1.3 + 0.9 * seedRandom(14)) * vec2(cos(wave), sin(wave));
    kAlong = along;
    kClock = loopAngle(0.35);
    kPhase = tau * seedRandom(11);
    kGrout = max(0.05, 0.6 * dotWidth() * size);
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 bend = vec2(noise(p * 0.45 + kPlaces.xy, kSpin), noise(p * 0.45 + kPlaces.zw, kSpin));
    vec2 q = rotate(p + 0.1 * lookWarp * bend, kTurn) * kSize + kPlaces.xy;
    vec2 extent = vec2(1.0);
    vec2 corner;
    if (kLargeShare > 1.0) {
        extent.x = 2.0;
        float row = floor(q.y);
        float shift = row - 2.0 * floor(0.5 * row);
        corner = vec2(2.0 * floor(0.5 * (q.x + shift)) - shift, row);
    } else {
        // A block of two by two is either one large tile or four small ones.
        vec2 block = floor(0.5 * q);
        bool large = unit(hashBits(ivec2(block) + 911)) < kLargeShare;
        extent = vec2(large ? 2.0 : 1.0);
        corner = large ? 2.0 * block : floor(q);
    }
    vec2 middle = corner + 0.5 * extent;
    vec2 local = q - middle;
    float radius = kCorner;
    vec2 halfSize = 0.5 * extent - kGrout;
    float d = roundBoxDistance(local, halfSize, radius);
    // The bevel faces outward: the slope of the distance.
    vec2 step = vec2(0.02, 0.0);
    vec2 outward = vec2(roundBoxDistance(local + step, halfSize, radius) - d,
                        roundBoxDistance(local + step.yx, halfSize, radius) - d) / step.x;
    float bevel = smoothstep(-0.17, -0.06, d);
    // The light of the tile as a whole.
    vec2 place = rotate((middle - kPlaces.xy) / kSize, vec2(kTurn.x, -kTurn.y));
    float wave = sin(dot(place, kAlong) + 1.6 * noise(place * 0.6 + kPlaces.zw, kSpin) - kClock + kPhase);
    float own = unit(hashBits(ivec2(corner))) - 0.5;
    float tone = 0.53 + 0.28 * wave + kContrast * own;
    tone += 0.1 * dot(local, kLight);
    tone += 0.28 * bevel * dot(outward, kLight);
    return mix(0.03, max(tone, 0.1), inside(d, max(cellWidth() * kSize, 0.02)));
}
