// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Rings from two or three drops that wander slowly. Their waves add up to a height; the slope of it is lit
// from one side, and the crests that face the light glint.

#define kDropPlace(i) k[i].xy
#define kDropRate(i) k[i].z
#define kDropPhase(i) k[i].w
#define kStrengths k[3] // of the three drops
#define kLight k[4].xy
#define kPlaces k[5]
#define kSpin k[6]

void prepare(inout vec4 k[8])
{
    // The drops stand around the middle, spread with the picture's shape.
    vec2 aspect = frameSize / min(frameSize.x, frameSize.y);
    float start = tau * seedRandom(0);
    for (int i = 0; i < 3; ++i) {
        float angle = start + tau * (float(i) + 0.5 * seedRandom(3 + i)) / 3.0;
        vec2 place = (0.35 + 0.5 * seedRandom(6 + i)) * aspect * vec2(cos(angle), sin(angle));
        vec2 drift = 0.09 * loopCircle(0.07 + 0.021 * float(i)).yx;
        float waves = (15.0 + 8.0 * seedRandom(18)) * (0.85 + 0.4 * seedRandom(9 + i)) * pow(coarseness(), -0.5);
        kDropPlace(i) = place + drift;
        kDropRate(i) = waves;
        kDropPhase(i) = loopAngle(0.55 + 0.07 * float(i)) + tau * seedRandom(12 + i);
    }
    // One drop leads; the third is missing from some pictures.
    kStrengths = vec4(1.2, 0.5 + 0.4 * seedRandom(15), seedRandom(16) < 0.4 ? 0.0 : 0.6, 0.0);
    float light = tau * seedRandom(17);
    kLight = vec2(cos(light), sin(light));
    kPlaces = vec4(seedOffset(10), seedOffset(11));
    kSpin = spin(0.06);
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 q = p * 0.4;
    vec2 bend = vec2(noise(q + kPlaces.xy, kSpin), noise(q + kPlaces.zw, kSpin));
    q = p + lookWarp * 0.1 * bend;
    float height = 0.0;
    vec2 slope = vec2(0.0);
    for (int i = 0; i < 3; ++i) {
        vec2 d = q - kDropPlace(i);
        // Rounded at the centre, so that the rings begin as a dome and not as the tip of a cone.
        float r = sqrt(dot(d, d) + 0.006);
        float strength = kStrengths[i] * inversesqrt(1.0 + 5.0 * r * r);
        float phase = kDropRate(i) * r - kDropPhase(i);
        height += strength * cos(phase);
        slope -= strength * sin(phase) / r * d;
    }
    float facing = dot(slope, kLight);
    float glint = smoothstep(0.2, 0.9, facing);
    float ground = 0.43 - 0.3 * dot(p, kLight) / (1.0 + 0.5 * length(p)) + 0.1 * bend.x;
    return ground + 0.33 * facing + 0.1 * height + 0.45 * glint * glint;
}
