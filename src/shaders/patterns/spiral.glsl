// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Logarithmic arms with a soft ridge, turning slowly about a calm, bright centre.

#define kCentre k[0].xy
#define kArms k[0].z
#define kWinding k[0].w
#define kTilt k[1].xy
#define kSqueeze k[1].z
#define kCore k[1].w
#define kArmPhase k[2].x
#define kFinePhase k[2].y
#define kPlaces k[3]
#define kSpin k[4]

void prepare(inout vec4 k[8])
{
    vec2 aspect = frameSize / min(frameSize.x, frameSize.y);
    float angle = tau * seedRandom(0);
    vec2 centre = 0.5 * seedRandom(1) * aspect * vec2(cos(angle), sin(angle));
    float sense = seedRandom(4) < 0.5 ? -1.0 : 1.0;
    float arms = 2.0 + floor(3.99 * seedRandom(2));
    kCentre = centre;
    kArms = arms;
    kWinding = sense * (arms * (1.4 + 1.4 * seedRandom(3)) + 1.5);
    float tilt = tau * seedRandom(5);
    kTilt = vec2(cos(tilt), sin(tilt));
    kSqueeze = 1.0 + 0.9 * seedRandom(6) * seedRandom(7);
    kCore = 0.14 + 0.1 * seedRandom(8);
    kArmPhase = tau * seedRandom(9) - sense * loopAngle(0.16);
    kFinePhase = tau * seedRandom(10) - sense * loopAngle(0.11);
    kPlaces = vec4(seedOffset(5), seedOffset(6));
    kSpin = spin(0.06);
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 n = p * 0.45;
    vec2 bend = vec2(noise(n + kPlaces.xy, kSpin), noise(n + kPlaces.zw, kSpin));
    // A disc seen at an angle.
    vec2 q = rotate(p - kCentre, kTilt);
    q.y *= kSqueeze;
    q += lookWarp * 0.11 * bend;
    float core = kCore;
    float r = length(q);
    float angle = atan(q.y, q.x + (abs(q.x) + abs(q.y) < 1e-5 ? 1e-5 : 0.0));
    float way = 0.5 * log(r * r + 0.15 * core * core);
    // Whole numbers of arms: no seam where the angle wraps.
    float phase = kArms * angle + kWinding * way + kArmPhase;
    float arm = 0.5 + 0.5 * cos(phase + 0.6 * cos(phase));
    float fine = 0.5 + 0.5 * cos(2.0 * phase - 3.0 * kWinding * way / kArms + kFinePhase + 2.0 * bend.x);
    float open = smoothstep(0.2 * core, 2.2 * core, r);
    float reach = 1.0 / (1.0 + 0.16 * r);
    float ridge = arm * (0.5 + 0.5 * arm) * (0.82 + 0.18 * fine);
    float heart = exp(-r * r / (core * core * 2.0));
    return 0.1 + 0.08 * bend.y + reach * (0.1 + open * 0.78 * ridge + 0.08 * fine) + 0.75 * heart;
}
