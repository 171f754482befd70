// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Shafts of light that fan out from a source beyond the frame. They overlap, their edges soften with the way,
// and haze drifts through them. The quiet side is the left.

#define DIRECTIONAL

#define kSource k[0].xy
#define kAxis k[0].zw
#define kSpin k[1]
#define kShafts(i) k[2 + (i)] // two shafts: angle and half width of each
#define kPlace k[7].xy
#define kZoom k[7].z
#define kPerSize k[7].w

void prepare(inout vec4 k[8])
{
    vec2 shape = frameSize / min(frameSize.x, frameSize.y);
    // From above, or now and then from the side.
    bool above = seedRandom(3) < 0.72 || shape.y > shape.x;
    vec2 source = above ? vec2(0.05 + 0.95 * seedRandom(1), 1.1 + 0.35 * seedRandom(2))
                        : vec2(1.15, 0.2 + 0.7 * seedRandom(2));
    source *= shape * max(1.0, pow(lookScale, -0.28));
    vec2 aim = shape * vec2(-0.25 + 0.45 * seedRandom(4), above ? -0.8 : -0.35);
    vec2 axis = normalize(aim - source);
    kSource = source;
    kAxis = axis;
    float spread = above ? max(atan(shape.x * 0.85, shape.y * 2.0), 0.28) : 0.42;
    spread *= 0.8 + 0.4 * seedRandom(5);
    vec2 slow = loopCircle(0.065);
    vec2 fast = loopCircle(0.13);
    for (int i = 0; i < 10; ++i) {
        float chance = seedRandom(50 + i);
        float scatter = seedRandom(10 + i);
        float place = (float(i) + 0.5 + 1.3 * (scatter - 0.5)) / 5.0 - 1.0;
        // Each goes to and fro by a mixture of its own of two motions.
        vec2 mixture = 2.0 * fract(64.0 * vec2(chance, scatter)) - 1.0;
        vec2 motion = vec2(i % 3 == 0 ? slow.y : slow.x, (i & 1) == 0 ? fast.x : fast.y);
        float sway = dot(mixture, motion);
        vec2 shaft = vec2(place + 0.05 * sway, 0.02 + 0.105 * chance * chance) * spread;
        if ((i & 1) == 0)
            kShafts(i / 2).xy = shaft;
        else
            kShafts(i / 2).zw = shaft;
    }
    kSpin = spin(0.14);
    kPlace = seedOffset(40) + 0.6 * loopCircle(0.05);
    kZoom = pow(lookScale, 0.72);
    kPerSize = 1.0 / sqrt(shape.x * shape.y);
}

/// One shaft: full across its width, its edges softer farther from the source. A narrow one is brighter.
float shaft(float angle, float halfWidth, float soft)
{
    float within = 1.0 - smoothstep(halfWidth - soft, halfWidth + soft, abs(angle));
    return within * min(0.4 + 0.025 / halfWidth, 1.0);
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
    vec2 along = vec2(r * 0.7, angle * 5.5);
    float clouds = noise(q * vec2(0.7, 0.9) + kPlace, kSpin);
    float wisps = noise(along + vec2(0.5, 0.3) * min(lookWarp, 1.3) * clouds - 1.7 * kPlace.yx, kSpin);
    float air = 1.0 + 0.45 * min(lookWarp, 1.7) * (0.6 * clouds + 0.4 * wisps);

    float soft = 0.004 + 0.011 * r + zoom * cellWidth() / max(r, 0.3);
    float light = 0.0;
    for (int i = 0; i < 5; ++i)
        light += shaft(angle - kShafts(i).x, kShafts(i).y, soft) +
                 shaft(angle - kShafts(i).z, kShafts(i).w, soft);
    float reach = r * kPerSize;
    float fall = 1.9 / (1.0 + reach * reach);
    float source = 0.9 * exp(-r * 1.6);
    light *= 1.25 * fall * max(air, 0.15);
    return 0.03 + 1.02 * expose(light * (0.5 + 0.5 * light) + source);
}
