// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Northern lights: one curtain hung along a folded line, so that it overlaps itself and brightens where it
// turns, its lower edge crisp, its rays fading upward; a fainter, farther curtain behind it.

// The curtain runs on to both sides of its turning points, and between two of them a sheet swings round like
// half a circle seen from the side.

#define kPoint(i) k[i].xyz // a turning point: x, height of the edge, length along the cloth
#define kLeftEnd k[0].w
#define kLean k[1].w
#define kReach k[2].w
#define kRightEnd k[3].w
#define kSpin k[4]
#define kPlace k[5].xy
#define kDrift k[5].zw
#define kZoom k[6].xy
#define kMiddle k[6].z
#define kFarEdge k[6].w
#define kBend k[7].y
#define kPhase k[7].z
#define kCell k[7].w

void prepare(inout vec4 k[8])
{
    vec2 shape = frameSize / min(frameSize.x, frameSize.y);
    float zoom = pow(lookScale, 0.68);
    float overlap = 0.14 + 0.2 * min(lookWarp, 2.0);
    bool twoFolds = seedRandom(27) > 0.35;
    float base = -0.5 + 0.24 * seedRandom(0);
    float slope = (seedRandom(19) - 0.5) * 0.6 / shape.x;
    float x = shape.x * (-0.75 + (twoFolds ? 0.6 : 1.2) * seedRandom(1));
    float along = 40.0 * seedRandom(2);
    vec2 back = overlap * (0.6 + 1.2 * vec2(seedRandom(14), seedRandom(16)));
    // The second fold begins only where the first has ended, whatever the turns' drift.
    float onward = max(shape.x * (twoFolds ? 0.5 + 0.6 * seedRandom(13) : 2.6), back.x + back.y + 0.2);
    vec2 circle = loopCircle(0.08);
    for (int i = 0; i < 4; ++i) {
        float chance = seedRandom(3 + i);
        float drift = dot(circle, 2.0 * vec2(chance, fract(64.0 * chance)) - 1.0);
        float nearness = (i & 1) == 0 ? -1.0 : 1.0;
        float edge = base + slope * x + nearness * (0.05 + 0.15 * seedRandom(8 + i)) + 0.04 * drift;
        kPoint(i) = vec3(x + 0.07 * drift, edge, along);
        float stride = i == 1 ? onward : (i == 0 ? -back.x : -back.y);
        x += stride;
        along += 1.3 * abs(stride);
    }
    kLeftEnd = base - 7.0 * slope + 0.5 * (seedRandom(20) - 0.4);
    kRightEnd = base + 7.0 * slope + 0.5 * (seedRandom(21) - 0.4);
    kLean = 0.05 + 0.16 * seedRandom(28);
    kReach = (0.8 + 0.45 * seedRandom(29)) * pow(lookScale, -0.3);
    kSpin = spin(0.12);
    kPlace = seedOffset(11);
    kDrift = 0.6 * vec2(circle.y, -circle.x);
    float mirror = seedRandom(26) > 0.5 ? 1.0 : -1.0;
    kZoom = vec2(mirror * zoom, zoom / shape.y);
    kMiddle = shape.x * (seedRandom(22) - 0.5);
    kFarEdge = 0.1 + 0.25 * seedRandom(23);
    kBend = 0.05 + 0.045 * min(lookWarp, 2.0);
    kPhase = seedRandom(25) + loopAngle(0.06) / tau;
    kCell = zoom * cellWidth();
}

/// A cheap sine: period 1, -1 to 1.
float wave(float x)
{
    x = abs(fract(x) * 2.0 - 1.0);
    return x * x * (6.0 - 4.0 * x) - 1.0;
}

/// Light of cloth whose edge is `height` below: a bright hem, and rays above it that end at different
/// heights.
float hang(float height, float along, float reach, float soft, vec4 k[8])
{
    float rays = noise(vec2(along * 6.0, height * 0.4) + kPlace + kDrift, kSpin);
    float broad = 0.6 * wave(along * 0.43 + kDrift.x) + 0.4 * wave(along * 0.97 - kDrift.y);
    float rise = smoothstep(-soft, 2.0 * soft, height);
    float up = max(height, 0.0);
    float fade = exp(-up / (reach * (0.42 + 0.24 * rays + 0.12 * broad)));
    float hem = 1.0 / (1.0 + 90.0 * up * up);
    float below = min(height, 0.0) * 11.0;
    float glow = (1.0 - rise) * 0.16 / (1.0 + below * below);
    return (rise * (fade * (0.66 + 0.4 * rays + 0.16 * broad) + 0.4 * hem) + glow) * (0.88 + 0.3 * broad);
}

/// One sheet of the curtain between two turning points.
float sheet(vec2 p, vec3 from, vec3 to, float soft, vec4 k[8])
{
    float halfWidth = 0.5 * (to.x - from.x);
    float place = p.x - 0.5 * (from.x + to.x);
    float c = clamp(place / halfWidth, -1.0, 1.0);
    float share = 0.5 + 0.5 * sign(c) * (1.0 - sqrt(1.0 - abs(c)));
    float height = p.y - mix(from.y, to.y, share);
    float side = 0.02 + kCell + 0.06 * saturate(height) + saturate(-2.5 * height);
    float within = smoothstep(0.0, side, abs(halfWidth) - abs(place));
    // The cloth is seen edge-on at a turn, and so brighter.
    float density = min(0.72 * inversesqrt(max(1.0 - c * c, 0.05)), 1.5);
    return within * density * hang(height, mix(from.z, to.z, share), kReach, soft, k);
}

float pattern(vec2 p, vec4 k[8])
{
    p *= kZoom;
    // The rays lean toward a point high above.
    float lean = max(1.0 - kLean * (p.y + 0.4), 0.5);
    vec2 q = vec2((p.x - kMiddle) / lean + kMiddle, p.y);
    q.y += kBend * (wave(q.x * 0.41 + kPhase) + 0.6 * wave(q.x * 0.93 - kPhase));
    float soft = max(0.012, kCell);
    // The sheet between the folds, and the two of the nearer fold: the folds do not reach each other.
    bool left = q.x < 0.5 * (kPoint(0).x + kPoint(3).x);
    vec3 outer = left ? kPoint(0) : kPoint(3);
    vec3 inner = left ? kPoint(1) : kPoint(2);
    vec3 end = left ? vec3(kPoint(0).x - 7.0, kLeftEnd, kPoint(0).z - 9.0)
                    : vec3(kPoint(3).x + 7.0, kRightEnd, kPoint(3).z + 9.0);
    float light = sheet(q, kPoint(1), kPoint(2), soft, k);
    light += 0.6 * sheet(q, inner, outer, soft, k);
    light += sheet(q, outer, end, soft, k);
    float far = p.y - kFarEdge;
    far -= 0.2 * wave(p.x * 0.17 + 2.0 * kPhase) + 0.09 * wave(p.x * 0.37 - kPhase);
    // Too faint for rays of its own kind: two waves do.
    float rays = wave(q.x * 2.3 + kDrift.y) * wave(q.x * 0.9 - kDrift.x);
    float back = smoothstep(-0.05, 0.1, far) * exp(-max(far, 0.0) * (2.0 - 0.9 * rays));
    light += 0.2 * back * (0.8 + 0.35 * rays);
    return max(0.06 - 0.03 * p.y, 0.02) + expose(1.5 * light * (0.7 + 0.3 * light));
}
