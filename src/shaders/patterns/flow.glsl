// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Silky currents: fractal noise whose domain is warped twice. Broad bands, and fine filaments where the two
// warps shear them.

void prepare(inout vec4 k[8])
{
    k[0] = spin(0.10);
    k[1] = spin(0.15);
    k[2] = vec4(seedOffset(0), seedOffset(1));
    k[3] = vec4(0.5 * loopCircle(0.05), 0.4 * loopCircle(0.031));
    float turn = tau * seedRandom(8);
    k[4] = vec4(cos(turn), sin(turn), 0.0, 0.0);
}

float pattern(vec2 p, vec4 k[8])
{
    // Longer along the current than across it.
    vec2 q = rotate(p, k[4].xy) * vec2(0.28, 0.52);
    vec2 first = vec2(noise(q + k[2].xy + k[3].xy, k[0]), noise(q + k[2].zw - k[3].zw, k[0]));
    vec2 bent = q + lookWarp * 0.38 * first;
    vec2 second = vec2(noise(bent * 1.7 + k[2].zw, k[1]), noise(bent * 1.7 - k[2].xy, k[1]));
    bent += lookWarp * 0.2 * second;
    float bands = fbm2(bent * 1.3 + k[3].zw + k[2].yx, k[0]);
    float shear = dot(first, second.yx);
    float ridge = 1.0 - abs(sin(bands * 7.0 + shear * 3.0));
    float filaments = ridge * ridge * smoothstep(0.05, 0.45, abs(shear));
    return 0.47 + 0.6 * bands + 0.12 * shear + 0.22 * filaments;
}
