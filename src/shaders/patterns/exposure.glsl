// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Light trails of a long exposure: two to four smooth closed curves, each going round twice and crossing
// itself, with a bright core and a wide glow, the light brighter on one part of its way.

// Curve i: k[2i] takes the picture to the curve's own tilted plane, k[2i+1] is (center, lobes + depth,
// phase); a curve of no lobes is left out.
void prepare(inout vec4 k[8])
{
    vec2 shape = frameSize / min(frameSize.x, frameSize.y);
    float size = sqrt(shape.x * shape.y);
    float zoom = pow(lookScale, 0.65);
    float count = 2.0 + floor(2.3 * seedRandom(1));
    for (int i = 0; i < 4; ++i) {
        float sway = 0.2 * sin(loopAngle(0.04 + 0.01 * float(i)));
        float turn = tau * seedRandom(2) + float(i) * (0.5 + 0.6 * seedRandom(3)) + sway;
        float tilt = 0.34 + 0.45 * seedRandom(4 + i);
        float radius = size * (1.2 - 0.1 * count) * (0.62 + 0.34 * seedRandom(9 + i));
        vec2 c = vec2(cos(turn), sin(turn));
        k[2 * i] = vec4(c.x, c.y / tilt, -c.y, c.x / tilt) * (zoom / radius);
        vec2 center = shape * vec2(1.1, 0.9) * vec2(seedRandom(14 + i) - 0.5, seedRandom(19 + i) - 0.5);
        float lobes = seedRandom(24 + i) > 0.4 || i > 4 - int(count) ? 1.0 : 3.0;
        float depth = lobes > 2.0 ? 0.15 + 0.17 * seedRandom(29 + i) : 0.2 + 0.42 * seedRandom(29 + i);
        depth *= 0.4 + 0.6 * min(lookWarp, 1.7);
        lobes = float(i) < count ? lobes : 0.0;
        float phase = tau * seedRandom(34 + i) + loopAngle(i == 1 ? -0.08 : 0.06);
        k[2 * i + 1] = vec4(center / zoom, lobes + min(depth, 0.72), phase);
    }
}

/// Light of both rounds of a curve at a point of the picture.
float trail(vec2 p, vec4 plane, vec4 curve, float extent)
{
    vec2 d = p - curve.xy;
    vec2 u = vec2(dot(plane.xz, d), dot(plane.yw, d));
    float r = max(length(u), 0.05);
    float angle = atan(u.y, u.x);
    float lobes = floor(curve.z);
    float depth = curve.z - lobes;
    // Going round twice, the curve is one sign of this on the first round and the other on the second.
    float phase = 0.5 * lobes * angle + curve.w;
    float swing = depth * cos(phase);
    float slope = 0.5 * lobes * depth * sin(phase);
    float head = 0.46 * cos(0.5 * angle - 2.0 * curve.w);
    vec2 radial = u / r;
    vec2 around = vec2(-radial.y, radial.x);
    float width = max(0.0125, 0.8 * cellWidth() / extent);
    float light = 0.0;
    for (int i = 0; i < 2; ++i) {
        float side = i == 0 ? 1.0 : -1.0;
        vec2 g = radial + side * slope / (1.0 + side * swing) * around;
        vec2 gradient = vec2(dot(plane.xy, g), dot(plane.zw, g));
        float away = abs(r - 1.0 - side * swing) / max(length(gradient) * extent, 1e-4);
        float strength = 0.52 + side * head;
        light += strength * (1.7 * bell(away, width) + 0.6 * exp(-away * 20.0) + 0.07 * exp(-away * 5.0));
    }
    return light;
}

float pattern(vec2 p, vec4 k[8])
{
    // The trails are as wide in every picture, however it is shaped and zoomed.
    float extent = sqrt(halfExtent().x * halfExtent().y);
    float light = 0.0;
    for (int i = 0; i < 4; ++i)
        light += min(floor(k[2 * i + 1].z), 1.0) * trail(p, k[2 * i], k[2 * i + 1], extent);
    return 0.02 + 1.02 * expose(light);
}
