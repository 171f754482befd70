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
        // What is left of the eight has no slope, and is nowhere the lowest.
        kFacet(i) = float(i) < count ? depth * rotate(direction, aside) : vec2(0.0);
        direction = rotate(direction, ahead);
    }
    // The crystal lies off centre and is as oblong as the picture, only less so.
    vec2 aspect = frameSize / min(frameSize.x, frameSize.y);
    kCentre = (vec2(seedRandom(2), seedRandom(3)) - 0.5) * 0.6 * sqrt(aspect);
    // Zoomed far out it still reaches into the corners: it shrinks less than the zoom says.
    kZoom = sqrt(lookScale) * pow(coarseness(), -0.5) * inversesqrt(aspect);
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

/// The two lowest of a number of planes, xy the slope and z the height, and how high the third is.
struct Lowest {
    vec3 first;
    vec3 second;
    float third;
};

void lower(vec2 slope, float height, inout Lowest planes)
{
    vec3 plane = vec3(slope, height);
    planes.third = min(planes.third, max(planes.second.z, height));
    if (height < planes.first.z) {
        planes.second = planes.first;
        planes.first = plane;
    } else if (height < planes.second.z) {
        planes.second = plane;
    }
}

/// How far the lowest plane is below the second, and that below the third: 0 where they meet to 1 a cell from there.
vec2 apartIn(Lowest planes, float cell)
{
    return saturate((vec2(planes.second.z, planes.third) - vec2(planes.first.z, planes.second.z)) / (0.75 * cell));
}

/// The crown's facets at q: the table, the stars round it, the kites that touch its corners, and the girdle's facets
/// outside.
Lowest crown(vec2 q, vec4 k[8])
{
    float table = kTable;
    float corner = 0.9 * table / kHalfStep.x;
    Lowest planes = Lowest(vec3(0.0), vec3(0.0, 0.0, 64.0), 64.0);
    for (int i = 0; i < 8; ++i) {
        vec2 d = kFacet(i);
        vec2 between = rotate(d, kHalfStep);
        float along = dot(between, q);
        lower(0.5 * between, 0.5 * table - 0.5 * along, planes);
        lower(0.9 * d, corner - 0.9 * dot(d, q), planes);
        lower(1.6 * between, 2.5 * table - 1.6 * along, planes);
    }
    return planes;
}

/// The same for the pavilion: long facets that meet in a point, and shorter ones between them.
Lowest pavilion(vec2 q, vec4 k[8])
{
    Lowest planes = Lowest(vec3(0.0, 0.0, 64.0), vec3(0.0, 0.0, 64.0), 64.0);
    for (int i = 0; i < 8; ++i) {
        vec2 d = kFacet(i);
        vec2 between = 1.25 * rotate(d, kHalfStep);
        lower(d, -dot(d, q), planes);
        lower(between, 0.2 - dot(between, q), planes);
    }
    return planes;
}

vec2 normalOf(vec2 slope) { return slope * inversesqrt(1.0 + dot(slope, slope)); }

/// A triangle's wave with rounded tips, -1.37 to 1.37, as long as a sine's.
float sway(float angle)
{
    float t = 1.0 - abs(4.0 * fract(angle / tau + 0.25) - 2.0);
    float t3 = t * t * t;
    return t * (1.54 - 0.17 * t3 * t3);
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 q = (p + kMelt * sin(2.3 * p.yx + kMeltPhase)) * kZoom - kCentre;
    Lowest front = crown(q, k);
    vec2 normal = normalOf(front.first.xy);
    // The pavilion, mirrored through the crystal and shifted by what the facet refracts.
    Lowest back = pavilion(kSlide - 0.85 * (q - kRefraction * normal), k);
    vec2 light = kLight;
    vec2 spread = vec2(light.y, -light.x) * kSpread + light;
    float own = 2.2 * dot(normal, light) + kPhase;
    float cell = cellWidth() * kZoom.x;
    // Two facets meet over a cell. Where a third one joins them neither is seen, or a single cell would jump as the
    // third takes the place of the second.
    vec2 apart = apartIn(back, cell);
    float here = sway(own + dot(normalOf(back.first.xy), spread));
    float there = sway(own + dot(normalOf(back.second.xy), spread));
    float tone = 0.46 + 0.28 * mix(0.5 * apart.y * (here + there), here, apart.x);
    tone += 0.16 * dot(normal, light) + 0.06 * dot(q, light);
    // Away from the middle: a facet is in the light or out of it.
    float side = clamp(2.0 * tone - 1.0, -1.0, 1.0);
    tone += 0.26 * side * (1.0 - abs(side));
    // The crown's edges: a line of one middle tone, which is fainter where dots would make beads of it, sparkling where
    // an edge lies across the light.
    vec2 edges = apartIn(front, cell);
    vec2 ridge = front.first.xy - front.second.xy;
    float square = max(dot(ridge, ridge), 1e-6);
    float steep = sqrt(square);
    float across = dot(ridge, light);
    across *= across / square;
    float rise = front.second.z - front.first.z;
    float seen = saturate(3.0 - 2.0 * dotWidth() / cellWidth());
    float edge = rise / steep;
    float sparkle = across * across * across;
    sparkle *= edges.y * sparkle;
    tone = mix(tone, 0.55, seen * (1.0 - saturate(rise / (cell * mix(0.75, 0.6 * steep, edges.y)))));
    float line = stroke(edge, max(0.004, 0.5 * cell), cell);
    return tone + 0.7 * line * sparkle + 0.3 * sparkle * bell(edge, 0.022);
}
