// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Silky currents: fractal noise whose domain is warped twice. Broad bands, and fine filaments where the two
// warps shear them.

#define kSlowSpin k[0]
#define kFastSpin k[1]
#define kPlaces k[2]
#define kDrift k[3]
#define kTurn k[4].xy

void prepare(inout vec4 k[8])
{
    kSlowSpin = spin(0.10);
    kFastSpin = spin(0.15);
    kPlaces = vec4(seedOffset(0), seedOffset(1));
    kDrift = vec4(0.5 * loopCircle(0.05), 0.4 * loopCircle(0.031));
    float turn = tau * seedRandom(8);
    kTurn = vec2(cos(turn), sin(turn));
}

float pattern(vec2 p, vec4 k[8])
{
    // Longer along the current than across it.
    vec2 q = rotate(p, kTurn) * vec2(0.28, 0.52);
    vec2 first = vec2(noise(q + kPlaces.xy + kDrift.xy, kSlowSpin),
                      noise(q + kPlaces.zw - kDrift.zw, kSlowSpin));
    vec2 bent = q + lookWarp * 0.38 * first;
    vec2 second = vec2(noise(bent * 1.7 + kPlaces.zw, kFastSpin), noise(bent * 1.7 - kPlaces.xy, kFastSpin));
    bent += lookWarp * 0.2 * second;
    float bands = fbm2(bent * 1.3 + kDrift.zw + kPlaces.yx, kSlowSpin);
    float shear = dot(first, second.yx);
    float ridge = 1.0 - abs(sin(bands * 7.0 + shear * 3.0));
    float filaments = ridge * ridge * smoothstep(0.05, 0.45, abs(shear));
    return 0.47 + 0.6 * bands + 0.12 * shear + 0.22 * filaments;
}
