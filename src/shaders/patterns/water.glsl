// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A pool's caustics: two nets of bright curved meshes on top of each other, sharp in places and soft in
// others.

void prepare(inout vec4 k[8])
{
    k[0] = spin(0.16);
    k[1] = spin(-0.13);
    k[2] = vec4(seedOffset(0) + 0.6 * loopCircle(0.05), seedOffset(1) - 0.5 * loopCircle(0.037));
    k[3] = vec4(seedOffset(2), seedOffset(3));
    float turn = tau * seedRandom(8);
    k[4] = vec4(cos(turn), sin(turn), 1.1 + 0.6 * seedRandom(9), 0.5 + 0.25 * seedRandom(10));
    k[5] = spin(0.05);
    float light = tau * seedRandom(11);
    k[6] = vec4(cos(light), sin(light), 0.75 + 0.5 * seedRandom(12), 0.0);
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
    vec2 bend = vec2(noise(n + k[3].xy, k[5]), noise(n + k[3].zw, k[5]));
    vec2 q = rotate(p, k[4].xy);
    q.y *= k[6].z;
    q += lookWarp * 0.14 * bend;
    vec2 first = nearestPoints(q * k[4].z + k[2].xy, k[0]);
    q += 0.1 * bend.yx;
    vec2 second = nearestPoints(q * k[4].z * k[4].w + k[2].zw, k[1]);
    vec2 gap = vec2(first.y - first.x, second.y - second.x);
    float sharp = mix(0.07, 0.2, smoothstep(-0.6, 0.6, bend.y));
    vec2 net = sharp / (sharp + gap * vec2(1.0, 0.8));
    net *= net;
    // Light gathers where meshes meet, farthest from every point.
    float pool = first.x * second.x;
    float depth = 0.19 + 0.17 * dot(p, k[6].xy) / (1.0 + 0.4 * length(p)) + 0.08 * bend.x;
    return depth + 0.55 * net.x * (0.6 + 0.6 * first.x) + 0.4 * net.y + 0.36 * pool;
}
