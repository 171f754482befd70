// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Rotated sines at irrational frequency ratios and one radial term: the lobes of a lava lamp, symmetrical
// nowhere.

#define kWave(i) k[i].xy // direction and frequency
#define kForm k[0].z
#define kClocks k[4]
#define kPhases k[5]
#define kCentre k[6].xy
#define kRingRate k[6].z
#define kRingClock k[6].w

void prepare(inout vec4 k[8])
{
    // Direction and frequency of each wave.
    float turn = tau * seedRandom(0);
    for (int i = 0; i < 4; ++i) {
        float angle = turn + float(i) * 2.39996 + 0.5 * seedRandom(i + 1);
        float frequency = 1.7 * pow(1.31, float(i)) * (0.85 + 0.3 * seedRandom(i + 5));
        kWave(i) = frequency * vec2(cos(angle), sin(angle));
    }
    kForm = 0.85 * plainness();
    kClocks = vec4(loopAngle(0.31), loopAngle(-0.23), loopAngle(0.19), loopAngle(-0.37));
    kPhases = tau * vec4(seedRandom(10), seedRandom(11), seedRandom(12), seedRandom(13));
    vec2 centre = 1.4 * (vec2(seedRandom(14), seedRandom(15)) - 0.5);
    kCentre = centre + 0.4 * loopCircle(0.13);
    kRingRate = 2.6 + 1.4 * seedRandom(16);
    kRingClock = loopAngle(0.29);
}

float pattern(vec2 p, vec4 k[8])
{
    // Each wave bends the ground of the next, which rounds the lobes and breaks every symmetry.
    vec2 q = p;
    float first = sin(dot(q, kWave(0)) + kClocks.x + kPhases.x);
    q += 0.24 * lookWarp * first * vec2(-kWave(0).y, kWave(0).x) / length(kWave(0));
    float second = sin(dot(q, kWave(1)) + kClocks.y + kPhases.y);
    q += 0.2 * lookWarp * second * vec2(-kWave(1).y, kWave(1).x) / length(kWave(1));
    float third = sin(dot(q, kWave(2)) + kClocks.z + kPhases.z);
    q += 0.14 * lookWarp * third * vec2(-kWave(2).y, kWave(2).x) / length(kWave(2));
    float fourth = sin(dot(q, kWave(3)) + kClocks.w + kPhases.w);
    float radial = sin(length(q - kCentre) * kRingRate - kRingClock);
    float sum = 0.7 * first + 0.9 * second + 0.9 * third + 0.7 * fourth + 0.9 * radial;
    // In few flat steps small lobes ride on the large ones.
    vec2 along = 1.3 * kWave(3);
    float small = sin(dot(p, along) + 1.3 * second) * sin(along.x * p.y - along.y * p.x - 1.3 * first);
    sum += kForm * small;
    // The arc sine takes the weight off the crests and troughs, where a sine spends most of its time.
    return 0.5 + 0.3265 * asin(0.97 * sin(1.05 * sum)) * 1.06;
}
