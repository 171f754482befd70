// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Rotated sines at irrational frequency ratios and one radial term: the lobes of a lava lamp, symmetrical
// nowhere.

void prepare(inout vec4 k[8])
{
    // Direction and frequency of each wave, its phase in k[4] and k[5].
    float turn = tau * seedRandom(0);
    for (int i = 0; i < 4; ++i) {
        float angle = turn + float(i) * 2.39996 + 0.5 * seedRandom(i + 1);
        float frequency = 1.7 * pow(1.31, float(i)) * (0.85 + 0.3 * seedRandom(i + 5));
        k[i] = vec4(frequency * vec2(cos(angle), sin(angle)), 0.0, 0.0);
    }
    k[4] = vec4(loopAngle(0.31), loopAngle(-0.23), loopAngle(0.19), loopAngle(-0.37));
    k[5] = tau * vec4(seedRandom(10), seedRandom(11), seedRandom(12), seedRandom(13));
    vec2 centre = 1.4 * (vec2(seedRandom(14), seedRandom(15)) - 0.5);
    k[6] = vec4(centre + 0.4 * loopCircle(0.13), 2.6 + 1.4 * seedRandom(16), loopAngle(0.29));
}

float pattern(vec2 p, vec4 k[8])
{
    // Each wave bends the ground of the next, which rounds the lobes and breaks every symmetry.
    vec2 q = p;
    float first = sin(dot(q, k[0].xy) + k[4].x + k[5].x);
    q += 0.24 * lookWarp * first * vec2(-k[0].y, k[0].x) / length(k[0].xy);
    float second = sin(dot(q, k[1].xy) + k[4].y + k[5].y);
    q += 0.2 * lookWarp * second * vec2(-k[1].y, k[1].x) / length(k[1].xy);
    float third = sin(dot(q, k[2].xy) + k[4].z + k[5].z);
    q += 0.14 * lookWarp * third * vec2(-k[2].y, k[2].x) / length(k[2].xy);
    float fourth = sin(dot(q, k[3].xy) + k[4].w + k[5].w);
    float radial = sin(length(q - k[6].xy) * k[6].z - k[6].w);
    float sum = 0.7 * first + 0.9 * second + 0.9 * third + 0.7 * fourth + 0.9 * radial;
    // The arc sine takes the weight off the crests and troughs, where a sine spends most of its time.
    return 0.5 + 0.3265 * asin(0.97 * sin(1.05 * sum)) * 1.06;
}
