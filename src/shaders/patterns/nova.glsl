// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A star that bursts: a glowing core, filaments of uneven length thrown out of it, and the thin shell of its
// shock wave.

void prepare(inout vec4 k[8])
{
    vec2 shape = frameSize / min(frameSize.x, frameSize.y);
    float size = sqrt(shape.x * shape.y);
    vec2 center = shape * vec2(0.8, 0.6) * vec2(seedRandom(1) - 0.5, seedRandom(2) - 0.5);
    k[0] = vec4(center, 1.0 / size, pow(lookScale, 0.7));
    k[1] = spin(0.07);
    k[2] = spin(0.11);
    k[3] = vec4(seedOffset(2), seedOffset(3));
    float breath = sin(loopAngle(0.09) + tau * seedRandom(9));
    k[4] = vec4(0.5 + 0.3 * seedRandom(10) + 0.03 * breath, 1.2 + 1.6 * seedRandom(11), 0.0,
                pow(lookScale, 0.7) * cellWidth() / size);
    float side = tau * seedRandom(13);
    k[5] = vec4(cos(side), sin(side), 0.4 + 0.14 * seedRandom(14), 0.5 + 0.5 * seedRandom(15));
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 q = (p * k[0].w - k[0].xy) * k[0].z;
    float r = max(length(q), 1e-4);
    float swirl = noise(q * 0.9 + k[3].zw, k[1]);
    float curl = lookWarp * 0.13 * swirl * r / (0.5 + r);
    vec2 ray = rotate(q / r, vec2(cos(curl), sin(curl)));
    float lit = 0.5 + 0.5 * dot(ray, k[5].xy);

    // Filaments: ridges of noise over the direction, each with a reach of its own, thinning outward.
    float coarse = noise(ray * k[4].y * 1.7 + k[3].yz, k[1]);
    float fine = noise(ray * (k[4].y * 4.2) + 0.5 * r * ray + k[3].wx, k[2]);
    float reach = 0.65 + 0.8 * noise(ray * k[4].y + k[3].xy, k[1]) + 0.4 * lit + 0.6 * fine;
    float sharp = 2.0 + 2.5 * saturate(r);
    float filaments = 0.75 * pow(saturate(1.0 - 0.85 * abs(coarse)), sharp);
    filaments += 0.8 * pow(saturate(0.5 + 0.75 * fine), sharp);
    float burst = 1.35 * filaments * exp(-r / (k[5].z * max(reach, 0.2))) * smoothstep(0.0, 0.25, r);

    // The shell is thin, and fills the burst behind it with a faint glow.
    float radius = k[4].x * (1.0 + 0.07 * lookWarp * swirl);
    float shell = r - radius;
    float thin = max(0.009, 0.9 * k[4].w);
    float glow = exp(-abs(shell) / (shell < 0.0 ? 0.14 : 0.03));
    float shock = bell(shell, thin) * (1.2 + 0.7 * coarse) + 0.3 * glow;
    shock *= 0.2 + k[5].w * lit * lit + 0.3 * lit;
    float core = 4.0 * exp(-r * r / 0.0064) + 1.5 * exp(-r / 0.11) + 0.3 * exp(-r / 0.4);
    return 0.02 + 1.02 * expose(core + burst + shock);
}
