// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Shafts of light from a source beyond the frame, above it, beside it or below: near and they fan out, far and they
// run almost side by side. They overlap, their edges soften with the way, and haze drifts through them. The quiet
// side is the left.

#define DIRECTIONAL

#define kSource k[0].xy
#define kAxis k[0].zw
#define kSpin k[1]
#define kShafts(i) k[2 + (i)] // two shafts: angle and half width of each
#define kNear k[6].x // where the light enters the picture
#define kSpread k[6].y
#define kHaze k[6].w
#define kPerSpread k[6].z
#define kPlace k[7].xy
#define kZoom k[7].z
#define kPerSize k[7].w

const int shaftPairs = 4;

void prepare(inout vec4 k[8])
{
    vec2 shape = frameSize / min(frameSize.x, frameSize.y);
    float size = sqrt(shape.x * shape.y);
    float from = seedRandom(3);
    float along = seedRandom(1);
    vec2 edge = from < 0.5 ? vec2(-0.5 + 1.5 * along, 1.0) : vec2(0.1 + 0.9 * along, -1.0);
    edge = from < 0.85 && from >= 0.5 ? vec2(1.0, 1.7 * along - 0.7) : edge;
    float far = seedRandom(2);
    vec2 aim = shape * vec2(0.7 * seedRandom(4) - 0.45, 0.8 * seedRandom(6) - 0.4);
    vec2 source = shape * edge * max(1.0, pow(lookScale, -0.28));
    source += (source - aim) * (0.12 + 1.6 * far * far);
    vec2 axis = normalize(aim - source);
    float distance = length(aim - source);
    kSource = source;
    kAxis = axis;
    // The light's cone covers most of the picture, however far away it comes from.
    float across = dot(abs(vec2(axis.y, axis.x)), shape);
    float spread = (0.78 + 0.2 * seedRandom(5)) * atan(across, distance);
    float narrow = 0.18 + 0.15 * max(coarseness() - 1.4, 0.0);
    float count = 6.0 + floor(2.99 * seedRandom(7));
    vec2 slow = loopCircle(0.16);
    vec2 fast = loopCircle(0.32);
    for (int i = 0; i < 2 * shaftPairs; ++i) {
        float chance = seedRandom(50 + i);
        float scatter = seedRandom(10 + i);
        float place = (2.0 * float(i) + 1.0 + 3.4 * (scatter - 0.5)) / count - 1.0;
        // Each goes to and fro by a mixture of its own of two motions.
        vec2 mixture = 2.0 * fract(64.0 * vec2(chance, scatter)) - 1.0;
        vec2 motion = vec2(i % 3 == 0 ? slow.y : slow.x, (i & 1) == 0 ? fast.x : fast.y);
        float sway = dot(mixture, motion);
        vec2 shaft = vec2(place + 0.05 * sway, (narrow + 0.9 * chance * chance) / count) * spread;
        // One too many lies behind the source.
        shaft.x = float(i) < count ? shaft.x : pi;
        if ((i & 1) == 0)
            kShafts(i / 2).xy = shaft;
        else
            kShafts(i / 2).zw = shaft;
    }
    kNear = max(distance - size, 0.0);
    kSpread = spread;
    kPerSpread = 1.0 / spread;
    // In few flat steps haze is steps across the shafts.
    kHaze = min(lookWarp, 1.7) * (0.45 - 0.25 * plainness());
    kSpin = spin(0.26);
    kPlace = seedOffset(40) + 0.6 * loopCircle(0.12);
    kZoom = pow(lookScale, 0.72);
    kPerSize = 1.0 / size;
}

/// One shaft, its edges softer farther from the source. A narrow one is brighter.
float shaft(float angle, float halfWidth, float narrow, float soft)
{
    float within = 1.0 - smoothstep(halfWidth - soft, halfWidth + soft, abs(angle));
    return within * min(0.36 + narrow / halfWidth, 1.0);
}

float pattern(vec2 p, vec4 k[8])
{
    float zoom = kZoom;
    vec2 q = p * zoom;
    vec2 away = q - kSource;
    float r = length(away);
    vec2 local = vec2(dot(away, kAxis), dot(away, vec2(kAxis.y, -kAxis.x)));
    float angle = atan(local.y, local.x);

    // Haze drawn out along the light, and broad clouds of it.
    vec2 along = vec2(r * 0.7, angle * 3.4 * kPerSpread);
    float clouds = noise(q * vec2(0.7, 0.9) + kPlace, kSpin);
    float wisps = noise(along + vec2(0.5, 0.3) * min(lookWarp, 1.3) * clouds - 1.7 * kPlace.yx, kSpin);
    float air = 1.0 + kHaze * (0.6 * clouds + 0.4 * wisps);

    float way = max(r - kNear, 0.0);
    float soft = kSpread * (0.012 + 0.024 * way) + zoom * cellWidth() / max(r, 0.3);
    // The air between the shafts is not quite dark.
    float aside = angle * kPerSpread;
    aside *= aside;
    float light = 0.14 / (1.0 + aside * aside);
    // The half width up to which a shaft is bright.
    float narrow = 0.035 * kSpread;
    for (int i = 0; i < shaftPairs; ++i)
        light += shaft(angle - kShafts(i).x, kShafts(i).y, narrow, soft) +
                 shaft(angle - kShafts(i).z, kShafts(i).w, narrow, soft);
    float reach = way * kPerSize;
    float fall = 1.5 / (1.0 + reach * reach);
    float source = 0.9 * exp(-r * 1.6);
    light *= 1.1 * fall * max(air, 0.15);
    return 0.03 + 1.02 * expose(light * (0.5 + 0.5 * light) + source);
}
