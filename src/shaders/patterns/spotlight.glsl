// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// One to three spotlights from above: cones with a soft penumbra, dust in the first, and the pools of light where
// they meet the floor.

#define kBack k[0].x // where the floor meets the wall
#define kZoom k[0].y
#define kCell k[0].z
#define kAir k[0].w
#define kCone(i) k[1 + (i)] // the lamp, x of the pool, its half width
#define kSpin k[4]
#define kDrift k[5].xy
#define kFlatness k[5].z
#define kPlaces k[6]
#define kGround k[7] // y of each pool; 1 / the picture's half height

const int cones = 3;

void prepare(inout vec4 k[8])
{
    vec2 shape = frameSize / min(frameSize.x, frameSize.y);
    float width = min(sqrt(shape.x * shape.y), 1.15 * shape.x);
    float chance = seedRandom(2);
    int count = chance < 0.35 ? 1 : chance < 0.75 ? 2 : 3;
    float first = seedRandom(1);
    float near = 1.0;
    // How far the floor's far end is up the picture, and how flat the floor lies then.
    float back = -0.65 + 0.65 * seedRandom(13);
    for (int i = 0; i < cones; ++i) {
        // The pools share the floor from left to right, in any order.
        float place = fract(first + (float(i) + 0.5 * seedRandom(9 + i)) / float(count));
        float swing = 0.13 * sin(loopAngle(0.2 + 0.06 * float(i)) + tau * seedRandom(15 + i));
        float depth = seedRandom(18 + i);
        float pool = (2.0 * place - 1.0) * (count == 1 ? 0.5 : 0.8) * shape.x;
        float lean = (2.0 * seedRandom(3 + i) - 1.0) * (count == 1 ? 1.1 : 0.85);
        float lamp = clamp(pool + lean * 1.3 * width, -1.3 * shape.x, 1.3 * shape.x);
        float size = width * (count == 1 ? 0.78 : count == 2 ? 0.5 : 0.38) * (0.75 + 0.5 * seedRandom(11 + i));
        kCone(i) = vec4(lamp, shape.y * (1.1 + 0.9 * seedRandom(6 + i)), pool + swing, size * (1.15 - 0.35 * depth));
        kGround[i] = shape.y * mix(-0.82, back - 0.08, depth);
        if (i >= count)
            kCone(i).xz = vec2(1000.0);
    }
    kBack = back * shape.y;
    kGround.w = 1.0 / shape.y;
    kZoom = pow(lookScale, 0.7);
    kCell = pow(lookScale, 0.7) * cellWidth();
    kFlatness = 0.14 + 0.14 * seedRandom(14) + 0.1 * (0.65 + back);
    kSpin = spin(0.3);
    kDrift = 0.5 * loopCircle(0.2);
    kPlaces = vec4(seedOffset(8), seedOffset(9));
    kAir = 0.6 + 0.3 * seedRandom(24);
}

/// Light of one cone in the air (x) and on the floor (y).
vec2 cone(vec2 p, vec4 lamp, float ground, vec4 k[8])
{
    float flatness = kFlatness;
    float spot = length((p - vec2(lamp.z, ground)) / (lamp.w * vec2(1.0, flatness)));
    float pool = (1.0 - smoothstep(0.7, 1.15, spot)) * (1.25 - 0.75 * spot * spot);
    float beyond = max(spot - 0.85, 0.0);
    pool += 0.22 / (1.0 + beyond * (1.4 + 1.8 * beyond));

    // The way down the cone, and the place across it, -1 to 1 from edge to edge.
    float way = (lamp.y - p.y) / (lamp.y - ground);
    float open = max(way, 0.02);
    float perWidth = 1.0 / (lamp.w * open);
    float across = (p.x - mix(lamp.x, lamp.z, way)) * perWidth;
    float bulge = sqrt(max(1.0 - across * across, 0.0));
    float soft = 0.07 + 0.16 * saturate(way) + kCell * perWidth;
    float body = (1.0 - smoothstep(1.0 - soft, 1.0 + soft, abs(across))) * (0.55 + 0.45 * bulge);
    // It ends on the far half of the pool's rim.
    float end = 1.0 - smoothstep(0.97, 1.03, way - flatness * lamp.w / (lamp.y - ground) * bulge);
    return vec2(body * end / (0.35 + 1.1 * open), pool);
}

float pattern(vec2 p, vec4 k[8])
{
    p *= kZoom;
    float clouds = noise(p * vec2(0.9, 1.2) + kPlaces.xy + kDrift, kSpin);
    vec2 finer = p * vec2(2.0, 2.6) + kPlaces.zw - kDrift.yx;
    float wisps = noise(finer + 0.45 * min(lookWarp, 1.3) * clouds, kSpin);
    float dust = 1.0 + min(lookWarp, 2.0) * (0.24 * clouds + 0.18 * wisps);

    // Motes of dust, seen only where the light is.
    vec2 place = p * 5.0 + 1.2 * kDrift + kPlaces.zw;
    uint bits = hashBits(ivec2(floor(place)));
    float size = 0.05 + 5.5 * kCell;
    float mote = 1.0 - smoothstep(0.3 * size, size, length(fract(place) - 0.25 - 0.5 * unit2(bits)));
    mote *= smoothstep(0.72, 0.8, unit(mixBits(bits)));

    vec2 light = cone(p, kCone(0), kGround.x, k) + 0.75 * cone(p, kCone(1), kGround.y, k);
    light += 0.6 * cone(p, kCone(2), kGround.z, k);
    float air = light.x * kAir * (max(dust, 0.2) + 0.8 * mote);
    // The floor runs back to a dim wall.
    float back = 1.0 - smoothstep(-0.1, 0.3, (p.y - kBack) * kGround.w);
    return 0.03 + 0.05 * back + 1.02 * expose(air + 1.35 * light.y * (0.94 + 0.06 * dust));
}
