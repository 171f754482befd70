// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A planet, large and off centre: banded, ringed or with land and sea, lit from one side, with a thin rim of
// air and a few stars around it. The quiet side is the left.

#define DIRECTIONAL

#define kCentre k[0].xy
#define kPerRadius k[0].z
#define kZoom k[0].w
#define kLight k[1].xyz
#define kKind k[1].w // 0 land and sea, 1 bands, 2 bands and a ring
#define kSide k[2].xyz // the globe's own frame: side, axis and front
#define kCell k[2].w
#define kAxis k[3].xyz
#define kFront k[4].xyz
#define kPlaces k[5]
#define kSpin k[6]
#define kStretch k[7].xy
#define kBands k[7].z
#define kBanded k[7].w

void prepare(inout vec4 k[8])
{
    vec2 shape = frameSize / min(frameSize.x, frameSize.y);
    float size = sqrt(shape.x * shape.y);
    // 0: land and sea, 1: bands, 2: bands and a ring.
    float kind = mod(floor(3.0 * seedRandom(1) + lookSeed), 3.0);
    // A globe in the picture, or one so large that its limb is the picture's horizon, from any side but the left.
    bool near = seedRandom(9) < 0.35;
    float grown = seedRandom(2);
    float radius = size * (near ? 1.1 + 0.7 * grown : kind > 1.5 ? 0.59 + 0.13 * grown : 0.66 + 0.26 * grown) * pow(coarseness(), 0.2);
    float toward = pi * (1.3 * seedRandom(3) - 0.65);
    vec2 limb = vec2(cos(toward), sin(toward));
    float inward = radius - dot(abs(limb), shape) * (0.16 + 0.34 * seedRandom(4));
    vec2 center = near ? limb * (inward + 0.38 * size)
                       : shape * vec2(0.85 * seedRandom(3) - 0.15, 1.3 * (seedRandom(4) - 0.5));
    kCentre = center;
    kPerRadius = 1.0 / radius;
    kZoom = pow(lookScale, 0.7);

    // Lit from the side that the frame shows most of.
    float aside = 1.6 * (seedRandom(5) - 0.5); // the tangent of half the angle
    vec2 azimuth = rotate(-normalize(center), vec2(1.0 - aside * aside, 2.0 * aside) / (1.0 + aside * aside));
    float height = mix(kind > 1.5 ? 0.35 : 0.28, 0.52, seedRandom(6));
    float level = sqrt(1.0 - height * height);
    kLight = vec3(level * azimuth, height);
    kKind = kind;

    // The globe's own frame: a leaning axis, and the day. Sines of its lean aside and toward the eye.
    float lean = 1.21 * (seedRandom(7) - 0.5);
    float nod = 0.16 + 0.23 * seedRandom(8);
    vec3 side = vec3(sqrt(1.0 - lean * lean), -lean, 0.0);
    vec3 axis = vec3(vec2(lean, side.x) * sqrt(1.0 - nod * nod), nod);
    vec3 front = cross(side, axis);
    vec2 day = loopCircle(0.1);
    kSide = side * day.x + front * day.y;
    kCell = 0.0;
    kAxis = axis;
    kFront = front * day.x - side * day.y;
    kPlaces = vec4(seedOffset(10), seedOffset(11));
    kSpin = spin(0.05);
    bool land = kind < 0.5;
    kStretch = land ? vec2(1.5, 1.5) : vec2(1.1, 4.2);
    kBands = land ? 2.0 : 3.2 + 2.6 * seedRandom(12);
    kBanded = land ? 0.0 : 1.0;
    kCell = kZoom * cellWidth() / radius;
}

/// Brightness of the ground below a point of the globe, about 0 to 1.
float surface(vec3 normal, vec4 k[8])
{
    vec3 b = vec3(dot(normal, kSide), dot(normal, kAxis), dot(normal, kFront));
    vec2 stretch = kStretch;
    float swirl = 0.7 * (noise(b.xy * stretch + kPlaces.xy, kSpin) + noise(b.zy * stretch + kPlaces.zw, kSpin));
    vec2 bend = 0.35 * min(lookWarp, 1.8) * swirl * vec2(1.0, 0.4);
    // The same two noises are finer ground of a land and bands of a banded planet.
    bool banded = kBanded > 0.5;
    vec2 place = b.xy + (banded ? vec2(0.8 * b.z, 0.0) : vec2(0.0));
    float detail = noise(place * stretch * 2.3 + bend - kPlaces.zw, kSpin);
    float latitude = b.y * kBands + (0.1 + 0.16 * lookWarp) * swirl + 0.08 * lookWarp * detail;
    vec2 broad = banded ? vec2(latitude, kPlaces.x) : b.zy * stretch * 2.3 - bend + kPlaces.yx;
    vec2 ground = vec2(b.x + b.z, b.y) * stretch * 5.1 + 3.0 * bend + kPlaces.xw;
    vec2 fine = banded ? vec2(latitude * 2.7, kPlaces.y) : ground;
    float first = noise(broad, kSpin);
    float second = noise(fine, kSpin);
    float rough = 0.7 * (detail + first) + 0.35 * second;
    float land = smoothstep(-0.12, 0.2, swirl + 0.5 * rough) - 0.3 * rough;
    return banded ? 0.55 + 0.55 * first + 0.25 * second + 0.18 * detail : 0.25 + 0.65 * land;
}

/// How much of the ring there is at a distance from the planet's centre, in its radii.
float ringSpan(float r, float width)
{
    float gap = smoothstep(0.02, 0.05 + width, abs(r - 1.82));
    return gap * inside(abs(r - 1.715) - 0.435, 2.0 * width);
}

/// A few stars: at most one in each cell of a wide lattice.
float stars(vec2 p, float width, vec4 k[8])
{
    p = p * 3.2 + kPlaces.xy;
    ivec2 cell = ivec2(floor(p));
    uint bits = hashBits(cell);
    vec2 d = fract(p) - 0.2 - 0.6 * unit2(bits);
    float bright = unit(mixBits(bits));
    float radius = max(0.02 + 0.03 * bright, 1.1 * width);
    float star = 1.0 - smoothstep(0.4 * radius, radius, length(d));
    return star * smoothstep(0.62, 0.75, bright) * (0.4 + 0.6 * fract(bright * 37.0));
}

float pattern(vec2 p, vec4 k[8])
{
    p *= kZoom;
    vec2 q = (p - kCentre) * kPerRadius;
    float width = kCell;
    float r = length(q);
    vec3 light = kLight;
    vec3 normal = vec3(q, sqrt(max(1.0 - r * r, 0.0)));
    normal = r > 1.0 ? vec3(q / r, 0.0) : normal;
    float lit = dot(normal, light);

    // Where the sight crosses the ring's plane, and where the sun's ray to the ground does.
    vec3 axis = kAxis;
    vec3 ringPlace = vec3(q, -dot(axis.xy, q) / axis.z);
    float towardSun = dot(axis, light);
    float way = -dot(axis, normal) / (abs(towardSun) < 0.05 ? 0.05 : towardSun);
    float shadow = way > 0.0 ? 0.62 * ringSpan(length(normal + way * light), 0.05) : 0.0;
    float hasRing = kKind > 1.5 ? 1.0 : 0.0;

    float day = smoothstep(-0.1, 0.75, lit);
    float ground = day * (0.36 + 0.62 * surface(normal, k)) * (1.0 - 0.7 * shadow * hasRing);
    float edge = 1.0 - normal.z;
    edge *= edge * edge;
    float air = smoothstep(-0.35, 0.6, lit);
    float globe = ground + 0.4 * edge * air;
    float disc = inside(r - 1.0, 1.5 * width);
    float wide = exp(-max(r - 1.0, 0.0) * 5.0);
    float narrow = wide * wide;
    float halo = air * (0.5 * narrow * narrow * wide + 0.22 * wide);
    float space = 0.03 + halo + stars(p, kCell / kPerRadius * 3.2, k);
    float tone = mix(space, globe, disc);

    float behind = dot(ringPlace, light);
    float off = length(ringPlace - behind * light);
    float shaded = behind < 0.0 ? smoothstep(0.94, 1.04, off) : 1.0;
    float away = length(ringPlace);
    float groove = sin(away * 16.5);
    float ring = 0.8 + 0.2 * groove - 0.36 * groove * groove;
    ring *= ringSpan(away, width / max(abs(axis.z), 0.1));
    float visible = max(1.0 - disc, step(0.0, ringPlace.z)) * smoothstep(0.0, 0.2, ring) * hasRing;
    return mix(tone, 0.05 + 0.85 * ring * (0.3 + 0.7 * shaded), visible * 0.92);
}
