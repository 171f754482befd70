// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A living web: nodes that wander, thin filaments grown between them, thicker at the nodes, and activity that
// lights one region after another.

void prepare(inout vec4 k[8])
{
    k[0] = spin(0.12);
    k[1] = spin(0.08);
    k[2] = vec4(seedOffset(0), seedOffset(1));
    float turn = tau * seedRandom(4);
    float density = (1.55 + 0.6 * seedRandom(5)) * pow(lookScale, 0.4);
    k[3] = vec4(cos(turn), sin(turn), density, loopAngle(0.4) / tau);
}

/// About exp(-x), 0 from x = 4 on: nothing reaches beyond the neighbouring cells of the lattice.
float fade(float x)
{
    x = max(1.0 - 0.25 * x, 0.0);
    x *= x;
    return x * x;
}

/// A filament from a to b, or none if the two nodes do not know each other: its core, and the glow around it.
/// A signal runs along it from the node of the lower number.
vec2 filament(vec2 p, vec3 a, vec3 b, float width, float clock)
{
    uint pair = mixBits(floatBitsToUint(a.z + b.z));
    float kin = unit(pair);
    vec2 d = b.xy - a.xy;
    float t = saturate(dot(p - a.xy, d) / max(dot(d, d), 1e-6));
    float away = length(p - a.xy - d * t);
    float ends = abs(2.0 * t - 1.0);
    float thick = max(0.013 + 0.038 * ends * ends * ends * ends, width);
    float known = smoothstep(0.38, 0.5, kin);
    float core = fade(away * away / (thick * thick));
    float near = max(1.0 - away / 0.125, 0.0);
    float signal = (a.z < b.z ? t : 1.0 - t) - 1.5 * fract(clock + 7.0 * kin) + 0.25;
    return known * vec2(core, near * near) * (1.0 + 1.2 * fade(70.0 * signal * signal));
}

/// A node of the lattice: its place, and a number of its own.
vec3 node(ivec2 cell, vec4 turn)
{
    return vec3(vec2(cell) + latticePoint(cell, 0.72, turn), unit(mixBits(hashBits(cell) + 7u)));
}

float pattern(vec2 p, vec4 k[8])
{
    float density = k[3].z;
    vec2 q = rotate(p, k[3].xy) * density + k[2].xy;
    vec2 bend = vec2(noise(q * 0.5 + k[2].zw, k[1]), noise(q * 0.5 - k[2].wz, k[1]));
    q += 0.4 * lookWarp / (1.0 + 0.75 * lookWarp) * bend;
    ivec2 cell = ivec2(floor(q));
    vec2 origin = floor(q);
    vec2 f = q - origin;
    float width = 0.9 * cellWidth() * density;
    vec3 n[9];
    float somas = 0.0;
    for (int i = 0; i < 9; ++i) {
        ivec2 offset = ivec2(i % 3 - 1, i / 3 - 1);
        vec3 place = node(cell + offset, k[0]);
        n[i] = vec3(place.xy - origin, place.z);
        vec2 offCenter = f - n[i].xy;
        float d = dot(offCenter, offCenter);
        float size = 0.05 + 0.06 * place.z;
        somas += 1.6 * fade(d / (size * size)) + 0.28 * fade(d * 6.0) * (0.3 + place.z);
    }
    vec2 web = vec2(0.0);
    for (int i = 0; i < 9; ++i)
        if (i != 4)
            web += filament(f, n[4], n[i], width, k[3].w);
    web += filament(f, n[1], n[3], width, k[3].w) + filament(f, n[1], n[5], width, k[3].w);
    web += filament(f, n[7], n[3], width, k[3].w) + filament(f, n[7], n[5], width, k[3].w);
    float activity = 0.57 + 0.42 * (bend.x + bend.y);
    float fibres = 1.0 - abs(noise(q * 1.9 + k[2].wx + bend, k[0]));
    fibres *= fibres * fibres;
    float light = (web.x * 0.9 + 0.22 * web.y + somas) * max(activity, 0.17) + 0.16 * fibres * fibres;
    return 0.02 + 1.02 * expose(1.25 * light);
}
