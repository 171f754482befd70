// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// An eclipse: a dark disc in a thin ring of light that is brighter on one side, and a corona that streams
// away from it in rays of uneven length.

#define kCentre k[0].xy
#define kRadius k[0].z
#define kZoom k[0].w
#define kSide k[1].xy
#define kRays k[1].z
#define kCell k[1].w
#define kSlowSpin k[2]
#define kFastSpin k[3]
#define kPlaces k[4]
#define kReachRate k[5].x
#define kReach k[5].y

void prepare(inout vec4 k[8])
{
    vec2 shape = frameSize / min(frameSize.x, frameSize.y);
    float size = sqrt(shape.x * shape.y);
    // Small anywhere, or so large that a part of it is out of the picture.
    float large = seedRandom(1);
    float radius = size * (0.2 * pow(coarseness(), 0.5) + 0.55 * large * large);
    vec2 center = shape * (vec2(1.1, 0.9) + 0.3 * large) * vec2(seedRandom(2) - 0.5, seedRandom(3) - 0.5);
    kCentre = center;
    kRadius = radius;
    kZoom = sqrt(lookScale);
    // The bright side is the one with more room.
    float side = atan(-center.y, -center.x) + 3.6 * (seedRandom(4) - 0.5) + 0.25 * sin(loopAngle(0.1));
    kSide = vec2(cos(side), sin(side));
    kRays = 2.2 + 2.4 * seedRandom(5);
    kCell = sqrt(lookScale) * cellWidth();
    kSlowSpin = spin(0.22);
    kFastSpin = spin(0.34);
    kPlaces = vec4(seedOffset(4), seedOffset(5));
    float reach = size * (0.33 + 0.05 * seedRandom(13) + 0.1 * length(center / shape)) / sqrt(lookScale);
    kReachRate = 0.9 + 0.8 * seedRandom(12);
    kReach = reach / radius;
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 q = p * kZoom - kCentre;
    float r = max(length(q), 1e-4);
    float radius = kRadius;
    float away = (r - radius) / radius;
    float beyond = max(away, 0.0);

    // The streams bend as they leave.
    float curl = min(lookWarp, 2.2) * 0.26 * beyond / (1.0 + beyond) * noise(q * 0.55 + kPlaces.zw, kSlowSpin);
    vec2 ray = rotate(q / r, vec2(cos(curl), sin(curl)));
    float lit = 0.5 + 0.5 * dot(ray, kSide);
    float reach = noise(ray * kReachRate + kPlaces.xy, kSlowSpin);
    float rays = noise(ray * (kRays * 1.6 + 0.25 * beyond) + kPlaces.yz, kFastSpin);
    float fine = noise(ray * kRays * 4.5 + kPlaces.wx, kFastSpin);
    float span = kReach * max(0.75 + 0.45 * reach + 0.4 * rays + 0.55 * lit * lit, 0.3);
    float strand = 0.8 + 0.5 * rays + 0.3 * fine * saturate(2.0 * beyond);
    float corona = exp(-beyond / span) * strand * (0.45 + 0.75 * lit);

    float thin = max(0.036, 1.2 * kCell / radius);
    float outside = smoothstep(-0.6 * thin, 0.6 * thin, away);
    float rim = exp(-abs(away) / thin) * (0.4 + 2.4 * lit * lit);
    rim += 1.8 * lit * lit * outside * exp(-beyond / 0.12);
    float flare = 1.8 * exp(-length(q - radius * kSide) / (0.15 * radius));
    return 0.02 + 1.02 * expose(outside * (corona + flare) + rim + 0.3 * flare * (1.0 - outside));
}
