// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Logarithmic arms with a soft ridge, turning slowly about a calm, bright centre.

void prepare(inout vec4 k[8])
{
    vec2 aspect = frameSize / min(frameSize.x, frameSize.y);
    float angle = tau * seedRandom(0);
    vec2 centre = 0.5 * seedRandom(1) * aspect * vec2(cos(angle), sin(angle));
    float sense = seedRandom(4) < 0.5 ? -1.0 : 1.0;
    float arms = 2.0 + floor(3.99 * seedRandom(2));
    k[0] = vec4(centre, arms, sense * (arms * (1.4 + 1.4 * seedRandom(3)) + 1.5));
    float tilt = tau * seedRandom(5);
    k[1] = vec4(cos(tilt), sin(tilt), 1.0 + 0.9 * seedRandom(6) * seedRandom(7), 0.14 + 0.1 * seedRandom(8));
    k[2] = vec4(tau * seedRandom(9) - sense * loopAngle(0.16), tau * seedRandom(10) - sense * loopAngle(0.11),
                0.0, 0.0);
    k[3] = vec4(seedOffset(5), seedOffset(6));
    k[4] = spin(0.06);
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 n = p * 0.45;
    vec2 bend = vec2(noise(n + k[3].xy, k[4]), noise(n + k[3].zw, k[4]));
    // A disc seen at an angle.
    vec2 q = rotate(p - k[0].xy, k[1].xy);
    q.y *= k[1].z;
    q += lookWarp * 0.11 * bend;
    float core = k[1].w;
    float r = length(q);
    float angle = atan(q.y, q.x + (abs(q.x) + abs(q.y) < 1e-5 ? 1e-5 : 0.0));
    float way = 0.5 * log(r * r + 0.15 * core * core);
    // Whole numbers of arms: no seam where the angle wraps.
    float phase = k[0].z * angle + k[0].w * way + k[2].x;
    float arm = 0.5 + 0.5 * cos(phase + 0.6 * cos(phase));
    float fine = 0.5 + 0.5 * cos(2.0 * phase - 3.0 * k[0].w * way / k[0].z + k[2].y + 2.0 * bend.x);
    float open = smoothstep(0.2 * core, 2.2 * core, r);
    float reach = 1.0 / (1.0 + 0.16 * r);
    float ridge = arm * (0.5 + 0.5 * arm) * (0.82 + 0.18 * fine);
    float heart = exp(-r * r / (core * core * 2.0));
    return 0.1 + 0.08 * bend.y + reach * (0.1 + open * 0.78 * ridge + 0.08 * fine) + 0.75 * heart;
}
