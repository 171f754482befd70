// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A brilliant-cut crystal that fills the frame: the crown's facets in front and, seen through them, the long
// facets of the pavilion. Both are the lower envelope of rings of planes, as a cutter would grind them. Each
// crown facet refracts the pavilion by an offset of its own, which breaks it into shards, and a shard's tone
// is where the light goes that passes both facets: strongly different tones meet at every edge.

#define kFacet(i) k[i].xy
#define kCentre k[0].zw
#define kZoom k[1].zw
#define kLight k[2].zw
#define kSlide k[3].zw
#define kPhase k[4].z
#define kTable k[4].w
#define kHalfStep k[5].zw
#define kMelt k[6].z
#define kMeltPhase k[6].w
#define kRefraction k[7].z
#define kSpread k[7].w

void prepare(inout vec4 k[8])
{
    // The directions of the facets, 6 to 8 in a ring. A direction's length tells how deep its facets are cut:
    // no two alike, the less so the more warp.
    float count = 6.0 + floor(2.99 * seedRandom(0));
    float uneven = min(0.02 + 0.05 * lookWarp, 0.2);
    float start = tau * seedRandom(1);
    vec2 direction = vec2(cos(start), sin(start));
    vec2 halfStep = vec2(cos(pi / count), sin(pi / count));
    vec2 ahead = rotate(halfStep, halfStep);
    for (int i = 0; i < 8; ++i) {
        // Aside by a small angle; h is about the tangent of its half.
        float h = 1.5 * uneven * pi / count * (seedRandom(i + 10) - 0.5);
        vec2 aside = vec2(1.0 - h * h, 2.0 * h) / (1.0 + h * h);
        float depth = 1.0 + uneven * (seedRandom(i + 20) - 0.5);
        // What is left of the eight has no slope, and crown() and pavilion() put it out of reach.
        kFacet(i) = float(i) < count ? depth * rotate(direction, aside) : vec2(0.0);
        direction = rotate(direction, ahead);
    }
    // The crystal lies off centre and is as oblong as the picture, only less so.
    vec2 aspect = frameSize / min(frameSize.x, frameSize.y);
    kCentre = (vec2(seedRandom(2), seedRandom(3)) - 0.5) * 0.6 * sqrt(aspect);
    // Zoomed far out it still reaches into the corners: it shrinks less than the zoom says.
    kZoom = sqrt(lookScale) * pow(coarseness(), -0.3) * inversesqrt(aspect);
    float light = tau * seedRandom(4);
    kLight = rotate(vec2(cos(light), sin(light)), loopCircle(0.06));
    // It rocks: the pavilion slides below the crown.
    kSlide = 0.06 * loopCircle(0.1);
    kPhase = tau * seedRandom(5) + loopAngle(0.1);
    kTable = 0.36 + 0.24 * seedRandom(6);
    kHalfStep = halfStep;
    kMelt = 0.018 * lookWarp * lookWarp;
    kMeltPhase = tau * seedRandom(7) + loopAngle(0.13);
    kRefraction = 0.5 + 0.35 * seedRandom(8);
    kSpread = 2.4 + 1.4 * seedRandom(9);
}

/// Keeps the lowest and the second lowest of the planes: xy the slope, z the height at q.
void lower(vec2 slope, float height, vec2 q, inout vec3 lowest, inout vec3 second)
{
    vec3 plane = vec3(slope, height - dot(slope, q));
    if (plane.z < lowest.z) {
        second = lowest;
        lowest = plane;
    } else if (plane.z < second.z) {
        second = plane;
    }
}

/// The crown's facet at q and, in `next`, the one after it: the table, the stars round it, the kites that
/// touch its corners, and the girdle's facets outside.
vec3 crown(vec2 q, vec4 k[8], out vec3 next)
{
    float table = kTable;
    float corner = table / kHalfStep.x;
    vec3 lowest = vec3(0.0);
    next = vec3(0.0, 0.0, 64.0);
    for (int i = 0; i < 8; ++i) {
        vec2 d = kFacet(i);
        vec2 between = rotate(d, kHalfStep);
        float away = dot(d, d) > 0.0 ? 0.0 : 60.0;
        lower(0.5 * between, 0.5 * table + away, q, lowest, next);
        lower(0.9 * d, 0.9 * corner + away, q, lowest, next);
        lower(1.6 * between, 2.5 * table + away, q, lowest, next);
    }
    return lowest;
}

/// The same for the pavilion: long facets that meet in a point, and shorter ones between them.
vec3 pavilion(vec2 q, vec4 k[8], out vec3 next)
{
    vec3 lowest = vec3(0.0, 0.0, 64.0);
    next = lowest;
    for (int i = 0; i < 8; ++i) {
        vec2 d = kFacet(i);
        float away = dot(d, d) > 0.0 ? 0.0 : 60.0;
        lower(d, away, q, lowest, next);
        lower(1.25 * rotate(d, kHalfStep), 0.2 + away, q, lowest, next);
    }
    return lowest;
}

vec2 normalOf(vec2 slope) { return slope * inversesqrt(1.0 + dot(slope, slope)); }

float pattern(vec2 p, vec4 k[8])
{
    vec2 q = (p + kMelt * sin(2.3 * p.yx + kMeltPhase)) * kZoom - kCentre;
    vec3 nextFront;
    vec3 front = crown(q, k, nextFront);
    vec2 normal = normalOf(front.xy);
    // The pavilion, mirrored through the crystal and shifted by what the facet refracts.
    vec3 nextBack;
    vec3 back = pavilion(kSlide - 0.85 * (q - kRefraction * normal), k, nextBack);
    vec2 light = kLight;
    vec2 spread = vec2(light.y, -light.x) * kSpread + light;
    float own = 2.2 * dot(normal, light) + kPhase;
    float cell = cellWidth() * kZoom.x;
    float apart = (nextBack.z - back.z) / max(length(nextBack.xy - back.xy), 1e-3);
    float here = asin(0.98 * sin(own + dot(normalOf(back.xy), spread)));
    float there = asin(0.98 * sin(own + dot(normalOf(nextBack.xy), spread)));
    float tone = 0.46 + 0.28 * mix(there, here, 0.5 + 0.5 * saturate(apart / cell));
    tone += 0.16 * dot(normal, light) + 0.06 * dot(q, light);
    // Away from the middle: a facet is in the light or out of it.
    float side = clamp(2.0 * tone - 1.0, -1.0, 1.0);
    tone += 0.26 * side * (1.0 - abs(side));
    // The crown's edges: a hair line, sparkling where an edge lies across the light.
    vec2 ridge = front.xy - nextFront.xy;
    float steep = max(length(ridge), 1e-3);
    float edge = (nextFront.z - front.z) / steep;
    float sparkle = pow(abs(dot(ridge, light)) / steep, 12.0);
    float line = stroke(edge, max(0.004, 0.5 * cell), cell);
    tone = mix(tone, 0.6, 0.4 * line);
    return tone + 0.7 * line * sparkle + 0.3 * sparkle * bell(edge, 0.022);
}
