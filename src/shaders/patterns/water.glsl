// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A pool's caustics: two nets of bright curved meshes on top of each other, sharp in places and soft in
// others.

#define kFirstSpin k[0]
#define kSecondSpin k[1]
#define kNetPlaces k[2]
#define kBendPlaces k[3]
#define kTurn k[4].xy
#define kSize k[4].z
#define kSecondSize k[4].w
#define kBendSpin k[5]
#define kLight k[6].xy
#define kSqueeze k[6].z

void prepare(inout vec4 k[8])
{
    kFirstSpin = spin(0.16);
    kSecondSpin = spin(-0.13);
    kNetPlaces = vec4(seedOffset(0) + 0.6 * loopCircle(0.05), seedOffset(1) - 0.5 * loopCircle(0.037));
    kBendPlaces = vec4(seedOffset(2), seedOffset(3));
    float turn = tau * seedRandom(8);
    kTurn = vec2(cos(turn), sin(turn));
    kSize = (1.1 + 0.6 * seedRandom(9)) * pow(coarseness(), -0.4);
    kSecondSize = 0.5 + 0.25 * seedRandom(10);
    kBendSpin = spin(0.05);
    float light = tau * seedRandom(11);
    kLight = vec2(cos(light), sin(light));
    kSqueeze = 0.75 + 0.5 * seedRandom(12);
}

/// Distances to the nearest and the second nearest point of a wandering lattice.
vec2 nearestPoints(vec2 p, vec4 turn)
{
    vec2 corner = floor(p);
    ivec2 cell = ivec2(corner);
    p -= corner;
    vec2 nearest = vec2(4.0);
    for (int y = -1; y <= 1; ++y)
        for (int x = -1; x <= 1; ++x) {
            vec2 d = vec2(float(x), float(y)) + latticePoint(cell + ivec2(x, y), 0.75, turn) - p;
            float squared = dot(d, d);
            nearest = vec2(min(nearest.x, squared), min(nearest.y, max(nearest.x, squared)));
        }
    return sqrt(nearest);
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 n = p * 0.75;
    vec2 bend = vec2(noise(n + kBendPlaces.xy, kBendSpin), noise(n + kBendPlaces.zw, kBendSpin));
    vec2 q = rotate(p, kTurn);
    q.y *= kSqueeze;
    q += lookWarp * 0.14 * bend;
    vec2 first = nearestPoints(q * kSize + kNetPlaces.xy, kFirstSpin);
    q += 0.1 * bend.yx;
    vec2 second = nearestPoints(q * kSize * kSecondSize + kNetPlaces.zw, kSecondSpin);
    vec2 gap = vec2(first.y - first.x, second.y - second.x);
    float sharp = mix(0.07, 0.2, smoothstep(-0.6, 0.6, bend.y));
    vec2 net = sharp / (sharp + gap * vec2(1.0, 0.8));
    net *= net;
    // Light gathers where meshes meet, farthest from every point.
    float pool = first.x * second.x;
    float depth = 0.19 + 0.17 * dot(p, kLight) / (1.0 + 0.4 * length(p)) + 0.08 * bend.x;
    return depth + 0.55 * net.x * (0.6 + 0.6 * first.x) + 0.4 * net.y + 0.36 * pool;
}
