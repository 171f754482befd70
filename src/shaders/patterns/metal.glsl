// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Liquid metal: a smooth height field that mirrors a studio, bright strips of light above a dark floor.
// Where the surface tips from one to the next the tone jumps, so that highlights are crisp lobes that follow
// the form, with soft gradients between them.

void prepare(inout vec4 k[8])
{
    k[0] = spin(0.06);
    k[1] = vec4(seedOffset(0), seedOffset(1));
    float turn = tau * seedRandom(6);
    float size = 0.55 + 0.2 * seedRandom(7);
    k[2] = vec4(cos(turn), sin(turn), size * (0.5 + 0.25 * seedRandom(8)), size);
    float studio = tau * seedRandom(9) + 0.35 * sin(loopAngle(0.07));
    k[3] = vec4(cos(studio), sin(studio), 0.1 + 0.2 * (seedRandom(10) - 0.5), 0.3 + 0.2 * seedRandom(11));
    // The last third of the warp bends little more, or the lobes would fray.
    k[5] = vec4(lookWarp * (0.28 - 0.028 * lookWarp), 0.06 + 0.012 * lookWarp, 0.0, 0.0);
    k[4] = vec4(0.3 * loopCircle(0.041), 0.3 * loopCircle(-0.03));
}

float strip(float x, float from, float to, float soft)
{
    return smoothstep(from - soft, from + soft, x) - smoothstep(to - soft, to + soft, x);
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 q = rotate(p, k[2].xy) * k[2].zw;
    vec2 bent = q * 0.8 + k[1].xy;
    vec2 w = q + k[5].x * vec2(noise(bent + k[4].xy, k[0]), noise(bent + 37.0 - k[4].xy, k[0]));
    vec3 large = noiseGradient(w + k[1].zw + k[4].zw, k[0]);
    vec3 small = noiseGradient(octaveTurn * w + k[1].yx, k[0]);
    vec2 slope = 0.5 * large.yz + 0.06 * (small.yz * octaveTurn);
    vec2 normal = slope * inversesqrt(1.0 + dot(slope, slope));
    float side = dot(normal, vec2(-k[3].y, k[3].x));
    float ray = dot(normal, k[3].xy) + 0.2 * side * side + k[3].z;
    float soft = max(k[5].y, 3.0 * cellWidth());
    float floorTone = 0.03 + 0.34 * smoothstep(0.05, 0.95, -ray);
    float wall = mix(0.92, 0.34, smoothstep(0.0, k[3].w + 0.1, ray));
    float tone = mix(floorTone, wall, smoothstep(-soft, soft, ray));
    tone += 0.3 * smoothstep(k[3].w + 0.3, 1.0, ray);
    tone += 0.62 * strip(ray, k[3].w + 0.12, k[3].w + 0.32, soft);
    return tone + 0.12 * large.x;
}
