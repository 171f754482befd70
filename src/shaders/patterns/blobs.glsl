// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Metaballs merging and parting: domed, lit from one side, with a rim light on the other, over clear ground.
// The field sums (radius / distance)^4, so that its inverse fourth root is the distance in radii: one ball
// alone is shaded as a perfect dome, and where balls meet the dome flows from one to the next.

#define kBalls(i) k[i] // the places of two
#define kSpin k[6]
#define kLight k[7].xy
#define kSize k[7].z
#define kChance k[7].w

void prepare(inout vec4 k[8])
{
    // Two balls in each vector. Zoom spreads or gathers them less than it zooms, so that they fill the frame.
    float gather = pow(lookScale, 0.2);
    float ball = gather / lookScale;
    vec2 reach = gather * halfExtent();
    float start = seedRandom(40);
    float wide = 0.85 + 0.25 * seedRandom(43);
    for (int i = 0; i < 12; ++i) {
        float angle = tau * (start + 0.618034 * float(i) + 0.12 * seedRandom(i));
        float away = wide * sqrt((float(i) + 0.4) / 12.0);
        vec2 home = away * reach * vec2(cos(angle), sin(angle));
        float rate = (0.1 + 0.1 * seedRandom(i + 12)) * (seedRandom(i + 24) < 0.5 ? -1.0 : 1.0);
        vec2 place = home + (0.12 + 0.16 * seedRandom(i + 50)) * ball * loopCircle(rate);
        if (i - (i / 2) * 2 == 0)
            kBalls(i / 2).xy = place;
        else
            kBalls(i / 2).zw = place;
    }
    kSpin = spin(0.1);
    float light = tau * (0.1 + 0.3 * seedRandom(41));
    kLight = vec2(cos(light), sin(light));
    kSize = ball;
    kChance = 100.0 * seedRandom(42);
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 bend = vec2(noise(p * 0.65 + kChance, kSpin), noise(p * 0.65 - kChance, kSpin));
    vec2 q = p + 0.13 * lookWarp * bend;
    float sum = 1e-6;
    float radii = 0.0;
    vec2 gradient = vec2(0.0);
    // Which ball is large depends on the seed; there are always some of every size.
    float size = fract(kChance);
    for (int i = 0; i < 6; ++i) {
        for (int j = 0; j < 2; ++j) {
            vec2 d = q - (j == 0 ? kBalls(i).xy : kBalls(i).zw);
            size = fract(size + 0.381966);
            float radius = (0.13 + 0.36 * size * size) * kSize;
            float near = max(dot(d, d), 1e-4);
            float share = radius * radius / near;
            share *= share;
            sum += share;
            radii += share * radius;
            gradient += share / near * d;
        }
    }
    float rho = inversesqrt(sqrt(sum));
    // The slope of rho. Between balls it falls to nothing, and the dome flattens to a saddle.
    float steep = rho * length(gradient) / sum;
    vec2 outward = gradient * inversesqrt(dot(gradient, gradient) + 1e-9);
    // Where two are about to merge it is flat, and the neck comes softly, not at once.
    float body = inside((rho - 1.0) / max(steep, 0.3), 1.5 * cellWidth());
    float across = min(rho, 1.0) * saturate(steep * radii / sum);
    vec3 normal = vec3(outward * across, sqrt(1.0 - across * across));
    float lit = saturate(dot(normal, vec3(0.6 * kLight, 0.8)));
    float rim = smoothstep(0.7, 0.98, across) * saturate(0.2 - 1.1 * dot(outward, kLight));
    float spot = smoothstep(0.93, 0.985, lit);
    float dome = 0.2 + 0.76 * lit * lit + 0.55 * rim + 0.16 * spot;
    // The ground is lit from the other side, so that every blob stands out, and darkens towards the blobs.
    float ground = 0.38 - 0.24 * dot(p, kLight) / length(halfExtent());
    ground *= mix(0.35, 1.0, smoothstep(0.95, 1.7, rho));
    return mix(ground, dome, body);
}
