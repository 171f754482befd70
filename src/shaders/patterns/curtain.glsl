// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Northern-light drapery seen from below: fine pleats that run together toward a point far above the
// picture, close and wide by turns, with light travelling along them.

#define DIRECTIONAL

void prepare(inout vec4 k[8])
{
    k[0] = spin(0.06);
    k[1] = vec4(seedOffset(0) + 0.3 * loopCircle(0.05), frameSize.y / min(frameSize.x, frameSize.y), 0.0);
    // Where the pleats run together; how close the pleats and the drapes stand.
    k[2] = vec4(2.0 * seedRandom(4) - 1.0, 3.0 + 3.0 * seedRandom(5), 20.0 + 12.0 * seedRandom(6),
                2.2 + 1.6 * seedRandom(7));
    k[3] = vec4(loopAngle(0.21), 0.4 * sin(loopAngle(0.11)), tau * seedRandom(8), tau * seedRandom(9));
    k[4] = vec4(seedOffset(5), 1.2 * seedRandom(12) - 1.0, 0.5 + 0.9 * seedRandom(13));
}

float pattern(vec2 p, vec4 k[8])
{
    // Seen from below: rays from a vanishing point, x tells them apart.
    float depth = max(k[2].y - p.y, 0.3);
    float x = (p.x - k[2].x) * k[2].y / depth;
    float sway = noise(vec2(x * 0.5, p.y * 0.35) + k[1].xy, k[0]);
    float across = x + lookWarp * 0.13 * sway;
    // The rhythm crowds pleats together, but never turns one back on another.
    float drape = across * k[2].w + k[3].z;
    float rhythm = 0.24 * sin(1.6 * across + k[3].w) + 0.09 * sin(3.7 * across + 2.0 * k[3].z);
    float fine = (across + rhythm) * k[2].z + 0.8 * sin(drape);
    // A pleat rises slowly and falls quickly over its fold.
    float pleat = 0.5 + 0.5 * sin(fine + 0.75 * cos(fine));
    // Pleats closer than the cells can show fade to their mean.
    float period = tau * depth / (1.4 * k[2].z * k[2].y);
    pleat = mix(0.5, pleat, smoothstep(2.0, 5.0, period / cellWidth()));
    float broad = 0.5 + 0.5 * sin(drape + 0.6 * cos(drape));
    float travel = noise(vec2(x * 1.2, p.y * 0.5 + k[3].y) + k[4].xy, k[0]);
    float run = 0.5 + 0.5 * sin(k[4].w * 2.0 * p.y + 2.0 * travel + 0.35 * fine - k[3].x);
    // The drapery hangs free below its hem.
    float hem = smoothstep(-0.9, 0.5, p.y / k[1].z - k[4].z + 0.35 * sway);
    float light = (0.25 + 0.75 * broad) * (0.2 + 0.8 * pleat) * (0.4 + 0.6 * run);
    return 0.08 + (0.25 + 0.75 * hem) * (1.0 * light + 0.14 * broad);
}
