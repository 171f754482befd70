// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A star that bursts: a glowing core, filaments of uneven length thrown out of it, and the thin shell of its
// shock wave.

#define kCentre k[0].xy
#define kPerSize k[0].z
#define kZoom k[0].w
#define kSlowSpin k[1]
#define kFastSpin k[2]
#define kPlaces k[3]
#define kShellRadius k[4].x
#define kFilaments k[4].y
#define kCell k[4].w
#define kSide k[5].xy
#define kBurstReach k[5].z
#define kShock k[5].w

void prepare(inout vec4 k[8])
{
    vec2 shape = frameSize / min(frameSize.x, frameSize.y);
    float size = sqrt(shape.x * shape.y);
    vec2 center = shape * vec2(1.3, 1.1) * vec2(seedRandom(1) - 0.5, seedRandom(2) - 0.5);
    kCentre = center;
    kPerSize = 1.0 / size;
    kZoom = pow(lookScale, 0.7);
    kSlowSpin = spin(0.17);
    kFastSpin = spin(0.26);
    kPlaces = vec4(seedOffset(2), seedOffset(3));
    float breath = sin(loopAngle(0.2) + tau * seedRandom(9));
    kShellRadius = 0.5 + 0.3 * seedRandom(10) + 0.03 * breath;
    kFilaments = (1.2 + 1.6 * seedRandom(11)) * pow(coarseness(), -0.8);
    kCell = pow(lookScale, 0.7) * cellWidth() / size;
    float side = tau * seedRandom(13);
    kSide = vec2(cos(side), sin(side));
    kBurstReach = 0.4 + 0.14 * seedRandom(14);
    kShock = 0.5 + 0.5 * seedRandom(15);
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 q = (p * kZoom - kCentre) * kPerSize;
    float r = max(length(q), 1e-4);
    float swirl = noise(q * 0.9 + kPlaces.zw, kSlowSpin);
    float curl = lookWarp * 0.13 * swirl * r / (0.5 + r);
    vec2 ray = rotate(q / r, vec2(cos(curl), sin(curl)));
    float lit = 0.5 + 0.5 * dot(ray, kSide);

    // Filaments: ridges of noise over the direction, each with a reach of its own, thinning outward.
    float coarse = noise(ray * kFilaments * 1.7 + kPlaces.yz, kSlowSpin);
    float fine = noise(ray * (kFilaments * 4.2) + 0.5 * r * ray + kPlaces.wx, kFastSpin);
    float reach = 0.65 + 0.8 * noise(ray * kFilaments + kPlaces.xy, kSlowSpin) + 0.4 * lit + 0.6 * fine;
    float sharp = 2.0 + 2.5 * saturate(r);
    float filaments = 0.75 * pow(saturate(1.0 - 0.85 * abs(coarse)), sharp);
    filaments += 0.8 * pow(saturate(0.5 + 0.75 * fine), sharp);
    float burst = 1.35 * filaments * exp(-r / (kBurstReach * max(reach, 0.2))) * smoothstep(0.0, 0.25, r);

    // The shell is thin, and fills the burst behind it with a faint glow.
    float radius = kShellRadius * (1.0 + 0.07 * lookWarp * swirl);
    float shell = r - radius;
    float thin = max(0.009, 0.9 * kCell);
    float glow = exp(-abs(shell) / (shell < 0.0 ? 0.14 : 0.03));
    float shock = bell(shell, thin) * (1.2 + 0.7 * coarse) + 0.3 * glow;
    shock *= 0.2 + kShock * lit * lit + 0.3 * lit;
    float core = 4.0 * exp(-r * r / 0.0064) + 1.5 * exp(-r / 0.11) + 0.3 * exp(-r / 0.4);
    return 0.02 + 1.02 * expose(core + burst + shock);
}
