// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A flow broken by datamoshing: along a band of the picture, blocks of several sizes hold a tone, slip
// sideways or smear it along a direction of their own.

#define kBendSpin k[0]
#define kBandSpin k[1]
#define kPlaces k[2]
#define kTurn k[3].xy
#define kClocks k[3].zw
#define kKey k[4].x
#define kBlockSize k[4].y
#define kZoom k[6].x
#define kOrigin k[4].zw
#define kBrokenNormal k[5].xy // the band where the picture is broken
#define kBrokenPlace k[5].z
#define kBrokenWidth k[5].w

void prepare(inout vec4 k[8])
{
    kBendSpin = spin(0.08);
    kBandSpin = spin(0.11);
    kPlaces = vec4(seedOffset(0) + 0.4 * loopCircle(0.045), seedOffset(1));
    float turn = tau * seedRandom(4);
    kTurn = vec2(cos(turn), sin(turn));
    kClocks = vec2(loopAngle(0.13), loopAngle(0.09));
    kKey = floor(4096.0 * seedRandom(5));
    // In coarse cells blocks and bands are broader.
    kBlockSize = (0.42 + 0.22 * seedRandom(6)) * pow(coarseness(), 0.3);
    kZoom = pow(coarseness(), -0.3);
    kOrigin = vec2(seedRandom(7), seedRandom(8));
    // The band where the picture is broken: its normal, its distance from the middle, its width.
    float across = tau * seedRandom(9);
    kBrokenNormal = vec2(cos(across), sin(across));
    kBrokenPlace = 0.6 * seedRandom(10) - 0.3;
    kBrokenWidth = 0.4 + 0.3 * seedRandom(11);
}

float current(vec2 p, vec4 k[8])
{
    vec2 q = rotate(p, kTurn) * (kZoom * vec2(0.34, 0.6));
    vec2 bend = vec2(noise(q + kPlaces.xy, kBendSpin), noise(q + kPlaces.zw, kBendSpin));
    float bands = fbm2(q + 0.45 * bend + kPlaces.wx, kBandSpin);
    return 0.48 + 0.46 * bands + 0.17 * sin(bands * 8.0 + 2.5 * bend.x);
}

float pattern(vec2 p, vec4 k[8])
{
    // From large blocks to small ones: the first size that claims the place has it.
    vec2 origin = 8.0 * (kOrigin - 0.5);
    vec2 middle = p;
    vec2 size = kBlockSize * vec2(1.6, 1.0);
    vec2 claimedSize = size;
    uint bits = 0u;
    bool claimed = false;
    for (int level = 0; level < 3; ++level) {
        vec2 block = floor((p + origin) / size);
        vec2 centre = (block + 0.5) * size - origin;
        uint own = mixBits(hashBits(ivec2(block)) + uint(kKey) + uint(level));
        float chance = 0.05 + 0.5 * bell(dot(centre, kBrokenNormal) - kBrokenPlace, kBrokenWidth);
        if (!claimed && unit(own) < chance) {
            claimed = true;
            middle = centre;
            claimedSize = size;
            bits = own;
        }
        size *= 0.5;
    }
    uint more = mixBits(bits);
    vec2 random = unit2(more);
    float breath = 0.5 + 0.5 * sin((random.x < 0.5 ? kClocks.x : kClocks.y) + tau * random.y);
    float amount = claimed ? lookWarp * (0.35 + 0.65 * breath) : 0.0;
    vec2 way = (more & 4u) == 0u ? vec2(1.0, 0.0) : vec2(0.0, 1.0);
    vec2 place = p;
    uint kind = more & 3u;
    if (kind == 0u)
        place = mix(p, middle, saturate(1.2 * amount));
    else if (kind == 1u)
        place += way * claimedSize * amount * (random.y < 0.5 ? -1.2 : 1.2);
    else
        place -= way * dot(p - middle + 0.5 * claimedSize, way) * saturate(1.4 * amount);
    return current(place, k) - 0.04 + 0.16 * (random.x - 0.5) * min(amount, 1.0);
}
