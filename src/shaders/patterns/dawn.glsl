// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Daybreak: a sun behind layers of haze, a banded sky, ranges that pale into the distance and quiet dark
// ground below. The sun stands mostly on the right.

#define DIRECTIONAL

#define kSun k[0].xy
#define kRadius k[0].z
#define kHorizon k[0].w
#define kZoom k[1].x
#define kCell k[1].y
#define kHalfHeight k[1].z
#define kNight k[1].w // how much darker the sky is high up
#define kPlaces k[2]
#define kSpin k[3]
#define kDrift k[4].xy
#define kStrata k[4].z
#define kRanges k[4].w
#define kFade k[5].x // 1 / how high that is

void prepare(inout vec4 k[8])
{
    vec2 shape = frameSize / min(frameSize.x, frameSize.y);
    float horizon = shape.y * (0.8 * seedRandom(1) - 0.7);
    // Low and large, or small and up in the sky; the earlier it is, the darker the sky above.
    float risen = seedRandom(4);
    float radius = mix(0.16 + 0.26 * seedRandom(2), 0.1 + 0.08 * seedRandom(2), risen);
    vec2 sun = vec2(shape.x * (1.3 * seedRandom(3) - 0.5), horizon + 0.3 * radius);
    sun.y += 0.75 * risen * (0.85 * shape.y - sun.y);
    kNight = 0.3 + 0.45 * seedRandom(12) * (1.0 - 0.5 * risen);
    kFade = 1.0 / (0.7 + 0.7 * seedRandom(13));
    kSun = sun;
    kRadius = radius;
    kHorizon = horizon;
    float zoom = pow(lookScale, 0.65);
    kZoom = zoom;
    kCell = zoom * cellWidth();
    kHalfHeight = shape.y;
    kPlaces = vec4(seedOffset(3), seedOffset(4));
    kSpin = spin(0.12);
    kDrift = 0.6 * loopCircle(0.08);
    kStrata = 2.0 + 2.5 * seedRandom(10);
    kRanges = 0.5 + 0.6 * seedRandom(11);
}

float pattern(vec2 p, vec4 k[8])
{
    p *= kZoom;
    float horizon = kHorizon;
    float up = (p.y - horizon) / kHalfHeight;
    vec2 toSun = p - kSun;
    float away = length(toSun * vec2(0.75, 1.0));

    // Haze lies in long flat layers, closer together near the horizon.
    float level = up / (0.5 + abs(up));
    vec2 strata = vec2(p.x * 0.2, 1.6 * level * kStrata);
    float drift = noise(strata * vec2(0.8, 0.5) + kPlaces.xy + kDrift, kSpin);
    vec2 bent = strata + vec2(0.0, 0.25 * lookWarp * drift);
    float haze = fbm2(bent + kPlaces.zw + kDrift * vec2(1.0, 0.1), kSpin);
    float bands = smoothstep(-0.15, 0.3, haze);

    float sky = 0.7 - kNight * smoothstep(0.0, 1.0, up * kFade) + 0.32 * exp(-away * 2.2);
    sky += (bands - 0.5) * 0.24 * smoothstep(-0.1, 0.25, up);
    float disc = inside(length(toSun) - kRadius, 1.5 * kCell);
    float tone = mix(sky, 1.0, disc * (0.35 + 0.65 * smoothstep(-0.2, 0.5, -haze)));

    // Three ranges, each darker and nearer than the one behind it.
    float detail = noise(vec2(p.x * 2.3 * kRanges, 0.0) + kPlaces.wx, kSpin);
    for (int i = 0; i < 3; ++i) {
        float near = float(i);
        vec2 place = vec2(p.x * (0.56 + 0.42 * near) * kRanges + 7.0 * near, 3.0 * near);
        float ridge = 0.85 * noise(place + kPlaces.yx + 0.15 * near * kDrift, kSpin);
        ridge += (i == 1 ? -0.3 : 0.12 + 0.12 * near) * detail;
        float edge = horizon - 0.17 * near * kRanges * kHalfHeight;
        edge += (0.05 + 0.035 * near) * (0.5 + 0.7 * lookWarp) * ridge;
        float below = edge - p.y;
        float body = 0.5 - 0.22 * near + 0.2 * exp(-away * 1.6) * (1.0 - 0.3 * near);
        body += 0.16 * smoothstep(0.0, 0.3, below) * (near > 1.5 ? -0.5 : 1.0);
        tone = mix(tone, body, smoothstep(-kCell, kCell, below));
    }
    return tone;
}
