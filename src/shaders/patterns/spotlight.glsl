// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// One or two spotlights from above: a cone with a soft penumbra, dust in it, and the pool of light where it
// meets the floor.

#define kGround k[0].x
#define kZoom k[0].y
#define kCell k[0].z
#define kFlatness k[0].w
#define kCone(i) k[1 + (i)] // the lamp, x of the pool, its half width
#define kSpin k[3]
#define kDrift k[4].xy
#define kStrength k[4].zw
#define kPlaces k[5]
#define kAir k[6].x
#define kHalfHeight k[6].y

void prepare(inout vec4 k[8])
{
    vec2 shape = frameSize / min(frameSize.x, frameSize.y);
    float width = min(sqrt(shape.x * shape.y), 1.15 * shape.x);
    float ground = -shape.y * (0.48 + 0.16 * seedRandom(1));
    bool two = seedRandom(2) > 0.45;
    for (int i = 0; i < 2; ++i) {
        float side = i == 0 ? -1.0 : 1.0;
        float swing = 0.1 * sin(loopAngle(0.07 + 0.03 * float(i)) + tau * seedRandom(7 + i));
        float lamp = two ? side * (0.3 + 0.6 * seedRandom(3 + i)) : 1.5 * (seedRandom(3) - 0.5);
        float pool = two ? -side * (0.7 * seedRandom(9 + i) - 0.15) : 0.8 * (seedRandom(9) - 0.5);
        kCone(i) = vec4(shape.x * lamp, shape.y * (1.2 + 0.4 * seedRandom(5 + i)), shape.x * pool + swing,
                        width * (two ? 0.4 + 0.16 * seedRandom(11 + i) : 0.6 + 0.18 * seedRandom(11)));
    }
    kGround = ground;
    kZoom = pow(lookScale, 0.7);
    kCell = pow(lookScale, 0.7) * cellWidth();
    kFlatness = 0.16 + 0.08 * seedRandom(13);
    kSpin = spin(0.1);
    kDrift = 0.5 * loopCircle(0.06);
    kStrength = vec2(1.0, two ? 0.7 : 0.0);
    kPlaces = vec4(seedOffset(8), seedOffset(9));
    kAir = 0.6 + 0.3 * seedRandom(14);
    kHalfHeight = shape.y;
}

/// Light of one cone in the air (x) and on the floor (y).
vec2 cone(vec2 p, vec4 lamp, vec4 k[8])
{
    float ground = kGround;
    float flatness = kFlatness;
    float spot = length((p - vec2(lamp.z, ground)) / (lamp.w * vec2(1.0, flatness)));
    float pool = (1.0 - smoothstep(0.7, 1.15, spot)) * (1.25 - 0.75 * spot * spot);
    pool += 0.22 * exp(-1.8 * max(spot - 0.85, 0.0));

    // The way down the cone, and the place across it, -1 to 1 from edge to edge.
    float way = (lamp.y - p.y) / (lamp.y - ground);
    float open = max(way, 0.02);
    float across = (p.x - mix(lamp.x, lamp.z, way)) / (lamp.w * open);
    float bulge = sqrt(max(1.0 - across * across, 0.0));
    float soft = 0.07 + 0.16 * saturate(way) + kCell / (lamp.w * open);
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

    vec2 light = kStrength.x * cone(p, kCone(0), k) + kStrength.y * cone(p, kCone(1), k);
    float air = light.x * kAir * (max(dust, 0.2) + 0.8 * mote);
    // The floor runs back to a dim wall.
    float back = 1.0 - smoothstep(-0.1, 0.3, (p.y - kGround) / kHalfHeight - 0.2);
    return 0.03 + 0.05 * back + 1.02 * expose(air + 1.35 * light.y * (0.94 + 0.06 * dust));
}
