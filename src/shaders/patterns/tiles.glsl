// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A wall of rounded tiles, each with its own tone and a bevel lit from above; slow waves of light pass over
// it, tile by tile. Seeds lay them as squares of two sizes or as bricks.

void prepare(inout vec4 k[8])
{
    k[0] = spin(0.16);
    k[1] = vec4(seedOffset(0), seedOffset(1));
    float turn = (seedRandom(4) < 0.6 ? 0.0 : 0.25 * pi) + 0.3 * (seedRandom(5) - 0.5);
    float size = 2.5 + 1.5 * seedRandom(6);
    bool bricks = seedRandom(12) < 0.3;
    // A share above 1 stands for bricks.
    k[2] = vec4(cos(turn), sin(turn), size, bricks ? 2.0 : 0.2 + 0.45 * seedRandom(7));
    float light = pi * (0.5 + 0.5 * (seedRandom(8) - 0.5)) - turn;
    k[3] = vec4(cos(light), sin(light), 0.08 + 0.2 * seedRandom(9), 0.18 + 0.3 * seedRandom(13));
    float wave = tau * seedRandom(10);
    vec2 along = (1.3 + 0.9 * seedRandom(14)) * vec2(cos(wave), sin(wave));
    k[4] = vec4(along, loopAngle(0.35), tau * seedRandom(11));
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 bend = vec2(noise(p * 0.45 + k[1].xy, k[0]), noise(p * 0.45 + k[1].zw, k[0]));
    vec2 q = rotate(p + 0.1 * lookWarp * bend, k[2].xy) * k[2].z + k[1].xy;
    vec2 extent = vec2(1.0);
    vec2 corner;
    if (k[2].w > 1.0) {
        extent.x = 2.0;
        float row = floor(q.y);
        float shift = row - 2.0 * floor(0.5 * row);
        corner = vec2(2.0 * floor(0.5 * (q.x + shift)) - shift, row);
    } else {
        // A block of two by two is either one large tile or four small ones.
        vec2 block = floor(0.5 * q);
        bool large = unit(hashBits(ivec2(block) + 911)) < k[2].w;
        extent = vec2(large ? 2.0 : 1.0);
        corner = large ? 2.0 * block : floor(q);
    }
    vec2 middle = corner + 0.5 * extent;
    vec2 local = q - middle;
    float radius = k[3].z;
    vec2 halfSize = 0.5 * extent - 0.05;
    float d = roundBoxDistance(local, halfSize, radius);
    // The bevel faces outward: the slope of the distance.
    vec2 step = vec2(0.02, 0.0);
    vec2 outward = vec2(roundBoxDistance(local + step, halfSize, radius) - d,
                        roundBoxDistance(local + step.yx, halfSize, radius) - d) / step.x;
    float bevel = smoothstep(-0.17, -0.06, d);
    // The light of the tile as a whole.
    vec2 place = rotate((middle - k[1].xy) / k[2].z, vec2(k[2].x, -k[2].y));
    float wave = sin(dot(place, k[4].xy) + 1.6 * noise(place * 0.6 + k[1].zw, k[0]) - k[4].z + k[4].w);
    float own = unit(hashBits(ivec2(corner))) - 0.5;
    float tone = 0.53 + 0.28 * wave + k[3].w * own;
    tone += 0.1 * dot(local, k[3].xy);
    tone += 0.28 * bevel * dot(outward, k[3].xy);
    return mix(0.03, max(tone, 0.1), inside(d, max(cellWidth() * k[2].z, 0.02)));
}
