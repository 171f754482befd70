// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Reeded glass: upright ribs, each of which refracts a soft moving glow behind it. A rib shows a wide piece
// of what is behind, mirrored and squeezed, so that shapes come back as rows of slices.

#define kRibs k[0].x
#define kDepth k[0].y
#define kShift k[0].z
#define kLightPlace(i) k[1 + (i)].xy
#define kLightSize(i) k[1 + (i)].z
#define kLampHole k[1].w // radius of what a ring leaves open
#define kSpin k[4]
#define kPlace k[5].xy
#define kSkySlope k[5].z
#define kZoom k[5].w

void prepare(inout vec4 k[8])
{
    kRibs = (3.8 + 3.8 * seedRandom(1)) * pow(coarseness(), -0.9);
    kDepth = (0.24 + 0.3 * seedRandom(2)) * pow(coarseness(), 0.3);
    kShift = 0.5 * seedRandom(0);
    vec2 aspect = frameSize / min(frameSize.x, frameSize.y);
    // A lamp, a glow and a shade. The lamp is a disc, a ring or the rim of a large disc outside.
    float start = tau * seedRandom(3);
    float kind = seedRandom(21);
    for (int i = 0; i < 3; ++i) {
        float angle = start + tau / 3.0 * (float(i) + 0.5 * seedRandom(i + 4));
        float away = i > 0 ? 0.8 : kind < 0.65 ? 0.4 : 1.0;
        vec2 towards = vec2(cos(angle), sin(angle));
        float size = i == 0 ? 0.55 + 0.3 * seedRandom(16) : 0.7 + 0.5 * seedRandom(i + 16);
        if (i == 0 && kind >= 0.65) {
            size += 0.9;
            away = (size - 0.15) / length(aspect * towards) + 0.1 * seedRandom(22);
        }
        float rate = (0.22 + 0.12 * seedRandom(i + 8)) * (seedRandom(i + 12) < 0.5 ? -1.0 : 1.0);
        kLightPlace(i) = away * aspect * towards + 0.25 * loopCircle(rate);
        kLightSize(i) = size;
    }
    kLampHole = kind < 0.3 ? 0.5 : -1.0;
    kSpin = spin(0.24);
    // What is behind is far away: it shrinks less than the zoom says.
    kPlace = seedOffset(10);
    kSkySlope = seedRandom(20) < 0.5 ? -0.18 : 0.18;
    kZoom = pow(lookScale, 0.6);
}

/// The light behind the glass.
float behind(vec2 p, vec4 k[8])
{
    vec2 q = p + 0.2 * lookWarp * vec2(noise(p * 0.5 + kPlace, kSpin), noise(p * 0.5 - kPlace.yx, kSpin));
    vec2 fromLamp = (q - kLightPlace(0)) / kLightSize(0);
    float away = length(fromLamp);
    float soft = 0.1 / kLightSize(0);
    float lamp = smoothstep(-soft, soft, 1.0 - away) * smoothstep(-soft, soft, away - kLampHole);
    float glow = bell(length(q - kLightPlace(1)) / kLightSize(1), 1.1);
    float shade = bell(length(q - kLightPlace(2)) / kLightSize(2), 1.0);
    float sky = 0.34 + kSkySlope * q.y + 0.35 * glow;
    return mix(sky * (1.0 - 0.85 * shade), 0.86 + 0.2 * fromLamp.y, lamp);
}

float pattern(vec2 p, vec4 k[8])
{
    float along = p.x * kRibs + kShift;
    float u = 2.0 * fract(along) - 1.0;
    vec2 seen = p;
    seen.x -= kDepth * u * (0.55 + 0.45 * u * u);
    float tone = behind(seen * kZoom, k);
    float line = 1.6 * dotWidth() * kRibs * 2.0;
    float groove = smoothstep(1.0 - clamp(line, 0.3, 0.7), 1.0, abs(u));
    return tone * (1.0 - 0.6 * groove) + 0.1 * bell(u + 0.5, 0.2);
}
