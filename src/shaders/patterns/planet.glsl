// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A planet, large and off centre: banded, ringed or with land and sea, lit from one side, with a thin rim of
// air and a few stars around it. The quiet side is the left.

#define DIRECTIONAL

void prepare(inout vec4 k[8])
{
    vec2 shape = frameSize / min(frameSize.x, frameSize.y);
    float size = sqrt(shape.x * shape.y);
    // 0: land and sea, 1: bands, 2: bands and a ring.
    float kind = mod(floor(3.0 * seedRandom(1) + lookSeed), 3.0);
    float radius = size * (kind > 1.5 ? 0.62 + 0.1 * seedRandom(2) : 0.74 + 0.14 * seedRandom(2));
    vec2 center = shape * vec2(0.1 + 0.4 * seedRandom(3), 0.7 * (seedRandom(4) - 0.5));
    k[0] = vec4(center, 1.0 / radius, pow(lookScale, 0.7));

    // Lit from the side that the frame shows most of.
    float azimuth = atan(-center.y, -center.x) + 2.2 * (seedRandom(5) - 0.5);
    float height = mix(kind > 1.5 ? 0.35 : 0.28, 0.52, seedRandom(6));
    float level = sqrt(1.0 - height * height);
    k[1] = vec4(level * cos(azimuth), level * sin(azimuth), height, kind);

    // The globe's own frame: a leaning axis, and the day.
    float lean = 1.3 * (seedRandom(7) - 0.5);
    float nod = 0.16 + 0.24 * seedRandom(8);
    vec3 axis = vec3(sin(lean) * cos(nod), cos(lean) * cos(nod), sin(nod));
    vec3 side = normalize(cross(axis, vec3(0.0, 0.0, 1.0)));
    vec3 front = cross(side, axis);
    vec2 day = loopCircle(0.06);
    k[2] = vec4(side * day.x + front * day.y, 0.0);
    k[3] = vec4(axis, 0.0);
    k[4] = vec4(front * day.x - side * day.y, 0.0);
    k[5] = vec4(seedOffset(10), seedOffset(11));
    k[6] = spin(0.03);
    k[7] = kind < 0.5 ? vec4(1.5, 1.5, 2.0, 0.0) : vec4(1.1, 4.2, 3.2 + 2.6 * seedRandom(12), 1.0);
    k[2].w = pow(lookScale, 0.7) * cellWidth() / radius;
}

/// Brightness of the ground below a point of the globe, about 0 to 1.
float surface(vec3 normal, vec4 k[8])
{
    vec3 b = vec3(dot(normal, k[2].xyz), dot(normal, k[3].xyz), dot(normal, k[4].xyz));
    vec2 stretch = k[7].xy;
    float swirl = 0.7 * (noise(b.xy * stretch + k[5].xy, k[6]) + noise(b.zy * stretch + k[5].zw, k[6]));
    vec2 bend = 0.35 * min(lookWarp, 1.8) * swirl * vec2(1.0, 0.4);
    float detail = 0.7 * (noise(b.xy * stretch * 2.3 + bend - k[5].zw, k[6])
                          + noise(b.zy * stretch * 2.3 - bend + k[5].yx, k[6]));
    detail += 0.35 * noise((b.xy + b.zy * vec2(1.0, 0.0)) * stretch * 5.1 + 3.0 * bend + k[5].xw, k[6]);
    float latitude = b.y * k[7].z + (0.1 + 0.16 * lookWarp) * swirl + 0.08 * lookWarp * detail;
    float bands = noise(vec2(latitude, k[5].x), k[6]) + 0.45 * noise(vec2(latitude * 2.7, k[5].y), k[6]);
    float land = smoothstep(-0.12, 0.2, swirl + 0.5 * detail) - 0.3 * detail;
    return k[7].w > 0.5 ? 0.55 + 0.55 * bands + 0.18 * detail : 0.25 + 0.65 * land;
}

/// Bright grooves of the ring at a distance from the planet's centre, in its radii.
float ringTone(float r, float width)
{
    float span = smoothstep(1.28 - width, 1.28 + width, r);
    span *= 1.0 - smoothstep(2.15 - width, 2.15 + width, r);
    float gap = smoothstep(0.02, 0.05 + width, abs(r - 1.82));
    return span * gap * (0.62 + 0.2 * sin(r * 17.0) + 0.18 * sin(r * 31.0 + 1.0));
}

/// A few stars: at most one in each cell of a wide lattice.
float stars(vec2 p, float width, vec4 k[8])
{
    p = p * 3.2 + k[5].xy;
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
    p *= k[0].w;
    vec2 q = (p - k[0].xy) * k[0].z;
    float width = k[2].w;
    float r = length(q);
    vec3 light = k[1].xyz;
    vec3 normal = vec3(q, sqrt(max(1.0 - r * r, 0.0)));
    normal = r > 1.0 ? vec3(q / r, 0.0) : normal;
    float lit = dot(normal, light);

    // Where the sight crosses the ring's plane, and where the sun's ray to the ground does.
    vec3 axis = k[3].xyz;
    vec3 ringPlace = vec3(q, -dot(axis.xy, q) / axis.z);
    float towardSun = dot(axis, light);
    float way = -dot(axis, normal) / (abs(towardSun) < 0.05 ? 0.05 : towardSun);
    float shadow = way > 0.0 ? ringTone(length(normal + way * light), 0.05) : 0.0;
    float hasRing = k[1].w > 1.5 ? 1.0 : 0.0;

    float day = smoothstep(-0.1, 0.75, lit);
    float ground = day * (0.36 + 0.62 * surface(normal, k)) * (1.0 - 0.7 * shadow * hasRing);
    float edge = pow(1.0 - normal.z, 3.0);
    float air = smoothstep(-0.35, 0.6, lit);
    float globe = ground + 0.4 * edge * air;
    float disc = inside(r - 1.0, 1.5 * width);
    float halo = air * (0.5 * exp(-max(r - 1.0, 0.0) * 26.0) + 0.22 * exp(-max(r - 1.0, 0.0) * 5.0));
    float space = 0.03 + halo + stars(p, k[2].w / k[0].z * 3.2, k);
    float tone = mix(space, globe, disc);

    float behind = dot(ringPlace, light);
    float off = length(ringPlace - behind * light);
    float shaded = behind < 0.0 ? smoothstep(0.94, 1.04, off) : 1.0;
    float ring = ringTone(length(ringPlace), width / max(abs(axis.z), 0.1));
    float visible = max(1.0 - disc, step(0.0, ringPlace.z)) * smoothstep(0.0, 0.2, ring) * hasRing;
    return mix(tone, 0.05 + 0.85 * ring * (0.3 + 0.7 * shaded), visible * 0.92);
}
