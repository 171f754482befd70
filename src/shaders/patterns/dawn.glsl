// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Daybreak: a low sun behind layers of haze, a banded sky, ranges that pale into the distance and quiet dark
// ground below. The sun stands on the right.

#define DIRECTIONAL

void prepare(inout vec4 k[8])
{
    vec2 shape = frameSize / min(frameSize.x, frameSize.y);
    float horizon = -shape.y * (0.22 + 0.22 * seedRandom(1));
    float radius = 0.13 + 0.13 * seedRandom(2);
    vec2 sun = vec2(shape.x * (-0.05 + 0.6 * seedRandom(3)), horizon + radius * (0.3 + 1.3 * seedRandom(4)));
    k[0] = vec4(sun, radius, horizon);
    float zoom = pow(lookScale, 0.65);
    k[1] = vec4(zoom, zoom * cellWidth(), shape.y, 0.35 + 0.4 * seedRandom(5));
    k[2] = vec4(seedOffset(3), seedOffset(4));
    k[3] = spin(0.06);
    k[4] = vec4(0.6 * loopCircle(0.03), 2.0 + 2.5 * seedRandom(10), 0.5 + 0.6 * seedRandom(11));
}

float pattern(vec2 p, vec4 k[8])
{
    p *= k[1].x;
    float horizon = k[0].w;
    float up = (p.y - horizon) / k[1].z;
    vec2 toSun = p - k[0].xy;
    float away = length(toSun * vec2(0.75, 1.0));

    // Haze lies in long flat layers, closer together near the horizon.
    float level = up / (0.5 + abs(up));
    vec2 strata = vec2(p.x * 0.2, 1.6 * level * k[4].z);
    float drift = noise(strata * vec2(0.8, 0.5) + k[2].xy + k[4].xy, k[3]);
    float haze = fbm2(strata + vec2(0.0, 0.25 * lookWarp * drift) + k[2].zw + k[4].xy * vec2(1.0, 0.1), k[3]);
    float bands = smoothstep(-0.15, 0.3, haze);

    float sky = 0.7 - 0.44 * smoothstep(0.0, 1.35, up) + 0.32 * exp(-away * 2.2);
    sky += (bands - 0.5) * 0.24 * smoothstep(-0.1, 0.25, up);
    float disc = inside(length(toSun) - k[0].z, 1.5 * k[1].y);
    float tone = mix(sky, 1.0, disc * (0.35 + 0.65 * smoothstep(-0.2, 0.5, -haze)));

    // Three ranges, each darker and nearer than the one behind it.
    float detail = noise(vec2(p.x * 2.3 * k[4].w, 0.0) + k[2].wx, k[3]);
    for (int i = 0; i < 3; ++i) {
        float near = float(i);
        vec2 place = vec2(p.x * (0.56 + 0.42 * near) * k[4].w + 7.0 * near, 3.0 * near);
        float ridge = 0.85 * noise(place + k[2].yx + 0.15 * near * k[4].xy, k[3]);
        ridge += (i == 1 ? -0.3 : 0.12 + 0.12 * near) * detail;
        float edge = horizon - 0.17 * near * k[4].w * k[1].z;
        edge += (0.05 + 0.035 * near) * (0.5 + 0.7 * lookWarp) * ridge;
        float below = edge - p.y;
        float body = 0.5 - 0.22 * near + 0.2 * exp(-away * 1.6) * (1.0 - 0.3 * near);
        body += 0.16 * smoothstep(0.0, 0.3, below) * (near > 1.5 ? -0.5 : 1.0);
        tone = mix(tone, body, smoothstep(-k[1].y, k[1].y, below));
    }
    return tone;
}
