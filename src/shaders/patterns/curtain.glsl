// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Northern-light drapery seen from below: fine pleats that run together toward a point far above the picture or
// below it, close and wide by turns, parted somewhere, with light travelling along them.

#define DIRECTIONAL

#define kSpin k[0]
#define kPlace k[1].xy
#define kHalfHeight k[1].z
#define kUpward k[1].w // -1 where the pleats run together below
#define kVanishing k[2].xy // where the pleats run together
#define kPleats k[2].z
#define kDrapes k[2].w
#define kRunClock k[3].x
#define kTravelClock k[3].y
#define kDrapePhase k[3].z
#define kRhythmPhase k[3].w
#define kTravelPlace k[4].xy
#define kHem k[4].z
#define kRunRate k[4].w
#define kLean k[5].xy
#define kParting k[5].zw // where it is parted, how wide

void prepare(inout vec4 k[8])
{
    vec2 shape = frameSize / min(frameSize.x, frameSize.y);
    kSpin = spin(0.06);
    kPlace = seedOffset(0) + 0.3 * loopCircle(0.05);
    kHalfHeight = shape.y;
    float lean = 1.3 * (seedRandom(14) - 0.5);
    kLean = vec2(cos(lean), sin(lean));
    // Where the pleats run together; how close the pleats and the drapes stand.
    float far = seedRandom(5);
    kUpward = seedRandom(15) < 0.7 ? 1.0 : -1.0;
    kVanishing = vec2(3.4 * seedRandom(4) - 1.7, kUpward * shape.y * (1.7 + 4.3 * far));
    kPleats = 14.0 + 18.0 * seedRandom(6);
    kDrapes = 1.5 + 3.0 * seedRandom(7);
    kRunClock = loopAngle(0.21);
    kTravelClock = 0.4 * sin(loopAngle(0.11));
    kDrapePhase = tau * seedRandom(8);
    kRhythmPhase = tau * seedRandom(9);
    kTravelPlace = seedOffset(5);
    kHem = 1.6 * seedRandom(12) - 1.2;
    kRunRate = 0.5 + 0.9 * seedRandom(13);
    kParting = vec2(shape.x * (2.0 * seedRandom(16) - 1.0), 0.25 + 0.5 * seedRandom(17));
}

float pattern(vec2 p, vec4 k[8])
{
    // Seen from below: rays from a vanishing point, x tells them apart.
    p = rotate(p, kLean);
    float depth = max((kVanishing.y - p.y) * kUpward, 0.3);
    float high = kVanishing.y * kUpward;
    float x = (p.x - kVanishing.x) * high / depth;
    float sway = noise(vec2(x * 0.5, p.y * 0.35) + kPlace, kSpin);
    float across = x + lookWarp * 0.13 * sway;
    // The rhythm crowds pleats together, but never turns one back on another.
    float drape = across * kDrapes + kDrapePhase;
    float rhythm = 0.24 * sin(1.6 * across + kRhythmPhase) + 0.09 * sin(3.7 * across + 2.0 * kDrapePhase);
    float fine = (across + rhythm) * kPleats + 0.8 * sin(drape);
    // A pleat rises slowly and falls quickly over its fold.
    float pleat = 0.5 + 0.5 * sin(fine + 0.75 * cos(fine));
    // Pleats closer than the cells can show fade to their mean.
    float period = tau * depth / (1.4 * kPleats * high);
    pleat = mix(0.5, pleat, smoothstep(2.0, 5.0, period / cellWidth()));
    float broad = 0.5 + 0.5 * sin(drape + 0.6 * cos(drape));
    float travel = noise(vec2(x * 1.2, p.y * 0.5 + kTravelClock) + kTravelPlace, kSpin);
    float run = 0.5 + 0.5 * sin(kRunRate * 2.0 * p.y + 2.0 * travel + 0.35 * fine - kRunClock);
    // The drapery hangs free below its hem.
    float hem = smoothstep(-0.9, 0.5, p.y / kHalfHeight - kHem + 0.35 * sway);
    // Where it is parted, the night shows through.
    float apart = (across + kVanishing.x - kParting.x) / kParting.y;
    hem *= 1.0 - 0.75 / (1.0 + apart * apart * apart * apart);
    float light = (0.25 + 0.75 * broad) * (0.2 + 0.8 * pleat) * (0.4 + 0.6 * run);
    return 0.08 + (0.25 + 0.75 * hem) * (1.0 * light + 0.14 * broad);
}
