// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Light trails of a long exposure: two to four smooth closed curves, each going round twice and crossing
// itself, with a bright core and a wide glow, the light brighter on one part of its way.

#define kPlane(i) k[2 * (i)] // of curve i: its centre, the turn and zoom that take the picture to the plane
#define kCurve(i) k[2 * (i) + 1] // 1 / tilt of the plane, depth of one lobe or less the depth of three, phase

float tiltOf(int i) { return 0.34 + 0.45 * seedRandom(4 + i); }
float radiusOf(int i, float count) { return (1.2 - 0.1 * count) * (0.62 + 0.34 * seedRandom(9 + i)); }

void prepare(inout vec4 k[8])
{
    vec2 shape = frameSize / min(frameSize.x, frameSize.y);
    float size = sqrt(shape.x * shape.y);
    float zoom = pow(lookScale, 0.65);
    // Coarse cells have room for two or three plain curves.
    float count = min(2.0 + floor(2.3 * seedRandom(1)), 1.0 + ceil(3.0 / coarseness()));
    bool coarse = coarseness() > 1.5;
    // Many long curves are drawn a little smaller, few short ones larger and nearer to the middle, or the picture were
    // too full or too empty.
    float girth = 0.0;
    for (int i = 0; i < 4; ++i)
        girth += float(i) < count ? radiusOf(i, count) * (1.0 + tiltOf(i)) : 0.0;
    float fit = pow(3.2 / girth, 0.35);
    vec2 spread = shape * vec2(1.1, 0.9) * min(0.3 + 0.2 * count, 1.0);
    for (int i = 0; i < 4; ++i) {
        float sway = 0.2 * sin(loopAngle(0.04 + 0.01 * float(i)));
        float turn = tau * seedRandom(2) + float(i) * (0.5 + 0.6 * seedRandom(3)) + sway;
        float tilt = tiltOf(i);
        float radius = size * fit * radiusOf(i, count);
        vec2 center = spread * vec2(seedRandom(14 + i) - 0.5, seedRandom(19 + i) - 0.5);
        // A curve too many lies far away.
        center = float(i) < count ? center : vec2(1000.0);
        kPlane(i) = vec4(center / zoom, vec2(cos(turn), sin(turn)) * (zoom / radius));
        bool simple = coarse || seedRandom(24 + i) > 0.4 || i > 4 - int(count);
        float chance = seedRandom(29 + i);
        float depth = simple ? 0.2 + 0.42 * chance : 0.15 + 0.17 * chance;
        depth = min(depth * (0.4 + 0.6 * min(lookWarp, 1.7)), 0.72);
        float phase = tau * seedRandom(34 + i) + loopAngle(i == 1 ? -0.08 : 0.06);
        kCurve(i) = vec4(1.0 / tilt, simple ? depth : -depth, cos(phase), sin(phase));
    }
}

/// Light of both rounds of a curve at a point of the picture.
float trail(vec2 p, vec4 plane, vec4 curve, float extent)
{
    vec2 u = rotate(p - plane.xy, plane.zw);
    u.y *= curve.x;
    float r = max(length(u), 0.05);
    vec2 radial = u / r;
    // Cosine and sine of half the angle round the centre, and of one and a half times it.
    vec2 halfAngle = sqrt(max(0.5 + vec2(0.5, -0.5) * radial.x, 0.0));
    halfAngle.y = u.y < 0.0 ? -halfAngle.y : halfAngle.y;
    vec2 tripled = halfAngle * (4.0 * halfAngle * halfAngle - 3.0) * vec2(1.0, -1.0);
    bool simple = curve.y > 0.0;
    float depth = abs(curve.y);
    // Going round twice, the curve is one sign of this on the first round and the other on the second.
    vec2 phase = depth * rotate(simple ? halfAngle : tripled, curve.zw);
    float swing = phase.x;
    float slope = (simple ? 0.5 : 1.5) * phase.y;
    float head = 0.46 * dot(halfAngle, vec2(curve.z * curve.z - curve.w * curve.w, 2.0 * curve.z * curve.w));
    vec2 around = vec2(-radial.y, radial.x);
    float width = max(0.0125, 0.8 * cellWidth() / extent);
    float steep = dot(plane.zw, plane.zw) * extent * extent;
    float light = 0.0;
    for (int i = 0; i < 2; ++i) {
        float side = i == 0 ? 1.0 : -1.0;
        vec2 g = radial + side * slope / (1.0 + side * swing) * around;
        g.y *= curve.x;
        float away = abs(r - 1.0 - side * swing) * inversesqrt(max(dot(g, g) * steep, 1e-8));
        float strength = 0.52 + side * head;
        float wide = exp(-away * 5.0);
        float narrow = wide * wide;
        light += strength * (1.7 * bell(away, width) + 0.6 * narrow * narrow + 0.076 * wide);
    }
    return light;
}

float pattern(vec2 p, vec4 k[8])
{
    // The trails are as wide in every picture, however it is shaped and zoomed.
    float extent = sqrt(halfExtent().x * halfExtent().y);
    float light = 0.0;
    for (int i = 0; i < 4; ++i)
        light += trail(p, kPlane(i), kCurve(i), extent);
    return 0.02 + 1.02 * expose(light);
}
