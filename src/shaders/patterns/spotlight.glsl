// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// One or two spotlights from above: a cone with a soft penumbra, dust in it, and the pool of light where it
// meets the floor.

// k[1], k[2]: the cones (lamp x, lamp y, pool x, pool half width).
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
        k[1 + i] = vec4(shape.x * lamp, shape.y * (1.2 + 0.4 * seedRandom(5 + i)), shape.x * pool + swing,
                        width * (two ? 0.4 + 0.16 * seedRandom(11 + i) : 0.6 + 0.18 * seedRandom(11)));
    }
    k[0] = vec4(ground, pow(lookScale, 0.7), pow(lookScale, 0.7) * cellWidth(), 0.16 + 0.08 * seedRandom(13));
    k[3] = spin(0.1);
    k[4] = vec4(0.5 * loopCircle(0.06), 1.0, two ? 0.7 : 0.0);
    k[5] = vec4(seedOffset(8), seedOffset(9));
    k[6] = vec4(0.6 + 0.3 * seedRandom(14), shape.y, 0.0, 0.0);
}

/// Light of one cone in the air (x) and on the floor (y).
vec2 cone(vec2 p, vec4 lamp, vec4 k[8])
{
    float ground = k[0].x;
    float flatness = k[0].w;
    float spot = length((p - vec2(lamp.z, ground)) / (lamp.w * vec2(1.0, flatness)));
    float pool = (1.0 - smoothstep(0.7, 1.15, spot)) * (1.25 - 0.75 * spot * spot);
    pool += 0.22 * exp(-1.8 * max(spot - 0.85, 0.0));

    // The way down the cone, and the place across it, -1 to 1 from edge to edge.
    float way = (lamp.y - p.y) / (lamp.y - ground);
    float open = max(way, 0.02);
    float across = (p.x - mix(lamp.x, lamp.z, way)) / (lamp.w * open);
    float bulge = sqrt(max(1.0 - across * across, 0.0));
    float soft = 0.07 + 0.16 * saturate(way) + k[0].z / (lamp.w * open);
    float body = (1.0 - smoothstep(1.0 - soft, 1.0 + soft, abs(across))) * (0.55 + 0.45 * bulge);
    // It ends on the far half of the pool's rim.
    float end = 1.0 - smoothstep(0.97, 1.03, way - flatness * lamp.w / (lamp.y - ground) * bulge);
    return vec2(body * end / (0.35 + 1.1 * open), pool);
}

float pattern(vec2 p, vec4 k[8])
{
    p *= k[0].y;
    float clouds = noise(p * vec2(0.9, 1.2) + k[5].xy + k[4].xy, k[3]);
    float wisps = noise(p * vec2(2.0, 2.6) + k[5].zw - k[4].yx + 0.45 * min(lookWarp, 1.3) * clouds, k[3]);
    float dust = 1.0 + min(lookWarp, 2.0) * (0.24 * clouds + 0.18 * wisps);

    // Motes of dust, seen only where the light is.
    vec2 place = p * 5.0 + 1.2 * k[4].xy + k[5].zw;
    uint bits = hashBits(ivec2(floor(place)));
    float size = 0.05 + 5.5 * k[0].z;
    float mote = 1.0 - smoothstep(0.3 * size, size, length(fract(place) - 0.25 - 0.5 * unit2(bits)));
    mote *= smoothstep(0.72, 0.8, unit(mixBits(bits)));

    vec2 light = k[4].z * cone(p, k[1], k) + k[4].w * cone(p, k[2], k);
    float air = light.x * k[6].x * (max(dust, 0.2) + 0.8 * mote);
    // The floor runs back to a dim wall.
    float back = 1.0 - smoothstep(-0.1, 0.3, (p.y - k[0].x) / k[6].y - 0.2);
    return 0.03 + 0.05 * back + 1.02 * expose(air + 1.35 * light.y * (0.94 + 0.06 * dust));
}
