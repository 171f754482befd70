// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Ocean swell: rank behind rank of waves up to the horizon. The crests catch the light, the troughs are
// dark, the near ranks pass faster than the far ones.

#define DIRECTIONAL

const int ranks = 7;

#define kHorizon k[0].x
#define kWaveRate k[0].y
#define kSunPlace k[0].z
#define kSunGlow k[0].w
#define kHeight k[1].x
#define kSky k[1].y
#define kHaze k[1].z
#define kFacing k[1].w
#define kSpin k[2]
#define kPlace k[3].xy
#define kReach k[3].z
#define kReachShare k[3].w
#define kPhases(i) k[4 + (i)] // of the even or the odd ranks
#define kPerRank k[6].x

void prepare(inout vec4 k[8])
{
    vec2 aspect = frameSize / min(frameSize.x, frameSize.y);
    float horizon = (0.05 + 0.7 * seedRandom(0)) * mix(1.0, aspect.y, 0.7);
    // Wave length and height, the sun's place and strength.
    kHorizon = horizon;
    kWaveRate = 0.6 + 0.9 * seedRandom(1);
    kSunPlace = (0.8 * seedRandom(2) - 0.15) * aspect.x;
    kSunGlow = 0.15 + 0.4 * seedRandom(3);
    kHeight = (0.55 + 0.75 * seedRandom(4)) * pow(coarseness(), 0.3);
    kSky = 0.12 + 0.33 * seedRandom(5);
    kHaze = 0.05 + 0.25 * seedRandom(6);
    kFacing = seedRandom(7) < 0.5 ? -1.0 : 1.0;
    kSpin = spin(0.05);
    // The ranks reach down to the foot of the picture.
    float reach = horizon + 0.8 * max(aspect.y, halfExtent().y);
    kPlace = seedOffset(4);
    kReach = reach;
    kReachShare = reach / (horizon + 0.8);
    // In coarse cells there are fewer ranks: those too many lie below the picture.
    kPerRank = 1.0 / (max(float(ranks) * pow(coarseness(), -0.5), 4.0) - 1.0);
    // The phase of each rank: nearer ones run faster.
    for (int i = 0; i < 4; ++i) {
        float near = float(2 * i) / float(ranks);
        kPhases(0)[i] = tau * seedRandom(10 + i) + loopAngle(0.06 + 0.16 * near);
        kPhases(1)[i] = tau * seedRandom(20 + i) + loopAngle(0.09 + 0.2 * near);
    }
}

float pattern(vec2 p, vec4 k[8])
{
    float horizon = kHorizon;
    float above = p.y - horizon;
    vec2 sun = vec2(p.x - kSunPlace, 1.6 * above);
    // A banded glow over the horizon.
    float tone = mix(0.55, kSky, smoothstep(0.0, 1.1, above)) + kSunGlow * exp(-1.8 * dot(sun, sun));
    float slow = noise(vec2(0.4 * p.x, 0.0) + kPlace, kSpin);
    float glint = exp(-1.1 * sun.x * sun.x);
    for (int i = 0; i < ranks; ++i) {
        float near = float(i) * kPerRank;
        float size = (0.03 + 0.25 * near * near * kReachShare) * kHeight;
        float base = horizon - 0.03 - kReach * near * (0.45 + 0.55 * near);
        float own = kPhases(i & 1)[i >> 1];
        float push = ((i & 1) == 0 ? 0.45 : -0.45) * lookWarp * slow;
        float along = p.x * kWaveRate * 1.3 / (0.16 + 0.62 * near) + push;
        float x = along + own;
        // A whole multiple of the phase: it comes round with the clock.
        float second = 1.71 * along + 2.0 * own;
        // Peaked crests and broad troughs: heaped up by warp.
        float swing = cos(x);
        float wave = sin(x + lookWarp * -0.28 * swing);
        float crest = base + size * ((0.65 + 0.3 * slow) * wave + 0.35 * sin(second));
        float d = crest - p.y;
        float depth = max(d, 0.0) / (size * 1.6 + 0.06);
        // The flank that faces the light is brighter than the other.
        float lit = 0.5 + 0.32 * wave + 0.38 * kFacing * swing;
        float haze = kHaze * (1.0 - near);
        float rank = 0.03 + haze + (0.4 + 0.35 * lit + 0.25 * glint) * (1.0 - 0.5 * haze) * exp(-2.1 * depth);
        rank += (0.12 + 0.25 * lit) * bell(d, max(0.015 + 0.03 * near, 0.6 * cellWidth()));
        tone = mix(tone, rank, saturate(d / (cellWidth() + 0.004 + 0.01 * near) + 0.5));
    }
    return tone;
}
