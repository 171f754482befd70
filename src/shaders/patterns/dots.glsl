// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A lattice of discs whose radii follow a slow field of waves: from pin-pricks to discs that touch.

#define kSpin k[0]
#define kPlaces k[1]
#define kTurn k[2].xy
#define kDensity k[2].z
#define kHexagonal k[2].w
#define kDrop k[3].xy
#define kRingRate k[3].z
#define kRingPhase k[3].w
#define kAlong k[4].xy
#define kPlaneClock k[4].z
#define kZoom k[4].w

void prepare(inout vec4 k[8])
{
    kSpin = spin(0.13);
    kPlaces = vec4(seedOffset(0), seedOffset(1));
    float turn = tau * seedRandom(4);
    // In coarse cells the dots stay larger than what draws them, or two lattices would beat.
    float size = (5.5 + 3.0 * seedRandom(5)) * pow(coarseness(), -1.3);
    kTurn = vec2(cos(turn), sin(turn));
    kDensity = size;
    kHexagonal = seedRandom(6) < 0.5 ? 1.0 : 0.0;
    vec2 aspect = frameSize / min(frameSize.x, frameSize.y);
    vec2 drop = (vec2(seedRandom(7), seedRandom(8)) - 0.5) * 1.6 * aspect;
    float phase = loopAngle(0.3) + tau * seedRandom(10);
    kDrop = drop + 0.15 * loopCircle(0.09);
    kRingRate = 2.6 + 1.8 * seedRandom(9);
    kRingPhase = phase;
    float wave = tau * seedRandom(11);
    vec2 along = (1.8 + 0.9 * seedRandom(12)) * vec2(cos(wave), sin(wave));
    kAlong = along;
    kPlaneClock = loopAngle(0.23);
    kZoom = sqrt(lookScale);
}

float swell(vec2 p, vec4 k[8])
{
    // Zoom brings the dots nearer more than the waves, so that near views have crests and troughs too.
    p *= kZoom;
    vec2 bend = vec2(noise(p * 0.5 + kPlaces.xy, kSpin), noise(p * 0.5 + kPlaces.zw, kSpin));
    p += 0.35 * lookWarp * bend;
    float ring = sin(length(p - kDrop) * kRingRate - kRingPhase);
    float plane = sin(dot(p, kAlong) - kPlaneClock);
    return 0.58 + 0.38 * (ring + 0.7 * plane);
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 q = rotate(p, kTurn) * kDensity;
    // Square rows, or rows shifted by a half and closer together: a hexagonal lattice.
    vec2 centre;
    if (kHexagonal > 0.5) {
        vec2 pitch = vec2(1.0, 1.7320508);
        vec2 even = pitch * floor(q / pitch + 0.5);
        vec2 odd = pitch * (floor(q / pitch) + 0.5);
        centre = dot(q - even, q - even) < dot(q - odd, q - odd) ? even : odd;
    } else {
        centre = floor(q) + 0.5;
    }
    vec2 middle = rotate(centre / kDensity, vec2(kTurn.x, -kTurn.y));
    float field = saturate(swell(middle, k));
    float width = cellWidth() * kDensity;
    float radius = mix(0.05, 0.49, field);
    float disc = inside(length(q - centre) - radius, max(width, 0.03));
    float ground = 0.03 + 0.32 * saturate(swell(p, k));
    return mix(ground, 0.5 + 0.5 * field, disc);
}
