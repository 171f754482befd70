// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Creased paper, as if the sheet had been folded five times and opened again: each fold mirrors the sheet on
// one side of it, so later creases are reflected at earlier ones. Facets are flat and shaded by their tilt,
// with a soft gradient across each, a thin shadow in every crease and a lit edge beside it.

#define kCreaseNormal(i) k[i].xy
#define kCreasePlace(i) k[i].z
#define kCreaseTilt(i) k[i].w
#define kSpin k[5]
#define kPlace k[6].xy
#define kLight k[7].xy
#define kZoom k[7].z

void prepare(inout vec4 k[8])
{
    // The creases: direction, place and tilt. Each fold goes through the middle of what the ones before it
    // left, so that facets are of similar size all over the sheet.
    vec2 sheet = frameSize / min(frameSize.x, frameSize.y);
    vec2 middle = (vec2(seedRandom(41), seedRandom(42)) - 0.5) * 0.5;
    float angle = tau * seedRandom(0);
    vec2 n = vec2(cos(angle), sin(angle));
    vec2 circle = loopCircle(0.14);
    float wild = min(0.25 + 0.5 * lookWarp, 1.0);
    vec2 halfSheet = sheet;
    float creases = coarseness() > 1.6 ? 4.0 : 5.0;
    for (int i = 0; i < 5; ++i) {
        float reach = dot(abs(n), halfSheet);
        float chance = seedRandom(i + 8);
        vec2 through = middle + 0.3 * reach * (chance - 0.5) * n;
        // Each sways in a time of its own within the same round.
        float sway = 0.03 * dot(circle, 2.0 * fract(vec2(64.0, 1024.0) * chance) - 1.0);
        float tilt = (0.75 + 0.5 * seedRandom(i + 30)) * (seedRandom(i + 35) < 0.5 ? -1.0 : 1.0);
        kCreaseNormal(i) = n;
        // Coarse cells have room for four folds; the fifth lies beyond the sheet.
        kCreasePlace(i) = float(i) < creases ? dot(through, n) + sway : 100.0;
        kCreaseTilt(i) = tilt;
        middle -= 0.5 * reach * n;
        halfSheet *= mix(vec2(1.0), vec2(0.5), abs(n));
        // A right angle and a little more or less; h is about the tangent of half of that.
        float h = wild * 0.77 * (seedRandom(i + 1) - 0.5);
        n = rotate(vec2(-n.y, n.x), vec2(1.0 - h * h, 2.0 * h) / (1.0 + h * h));
    }
    kSpin = spin(0.1);
    kPlace = seedOffset(21);
    float light = tau * seedRandom(40) + 0.6 * sin(loopAngle(0.2));
    // Zoomed far out the folds spread: they shrink less than the zoom says.
    kLight = vec2(cos(light), sin(light));
    kZoom = sqrt(lookScale);
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 bend = vec2(noise(p * 0.5 + kPlace, kSpin), noise(p * 0.5 - kPlace.yx, kSpin));
    vec2 q = (p + min(0.03 * lookWarp * lookWarp, 0.2) * bend) * kZoom;
    mat2 mirror = mat2(1.0);
    vec2 slope = vec2(0.0);
    float soft = 0.0;
    float shadow = 0.0;
    float edge = 0.0;
    float even = 1.0; // 0 in a crease
    float cell = cellWidth() * kZoom;
    for (int i = 0; i < 5; ++i) {
        vec2 n = kCreaseNormal(i);
        float d = dot(q, n) - kCreasePlace(i);
        vec2 crease = mirror * n;
        float side = even * clamp(d / cell, -1.0, 1.0);
        slope += kCreaseTilt(i) * side * crease;
        float lit = dot(crease, kLight) * kCreaseTilt(i) * side;
        soft += lit * bell(d, 0.2);
        shadow = max(shadow, stroke(d, max(0.005, 0.5 * cell), cell));
        edge = max(edge, bell(abs(d) - 0.012, 0.014) * saturate(lit));
        // In a crease the sheet is mirrored at once: what comes after it is not felt there, or single cells would jump.
        even = abs(side);
        if (d > 0.0) {
            q -= 2.0 * d * n;
            mirror = mirror * (mat2(1.0) - 2.0 * mat2(n * n.x, n * n.y));
        }
    }
    float tilt = 0.5 * dot(slope, kLight) + 0.26 * soft;
    float tone = 0.5 + 0.48 * tilt * inversesqrt(1.0 + tilt * tilt);
    return mix(tone + 0.3 * edge, 0.25 * tone, 0.8 * shadow);
}
