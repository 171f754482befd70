// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// An eclipse: a dark disc in a thin ring of light that is brighter on one side, and a corona that streams
// away from it in rays of uneven length.

void prepare(inout vec4 k[8])
{
    vec2 shape = frameSize / min(frameSize.x, frameSize.y);
    float size = sqrt(shape.x * shape.y);
    float radius = size * (0.32 + 0.16 * seedRandom(1));
    vec2 center = shape * vec2(0.7, 0.4) * vec2(seedRandom(2) - 0.5, seedRandom(3) - 0.5);
    k[0] = vec4(center, radius, sqrt(lookScale));
    // The bright side is the one with more room.
    float side = atan(-center.y, -center.x) + 2.4 * (seedRandom(4) - 0.5) + 0.25 * sin(loopAngle(0.05));
    k[1] = vec4(cos(side), sin(side), 2.2 + 2.4 * seedRandom(5), sqrt(lookScale) * cellWidth());
    k[2] = spin(0.1);
    k[3] = spin(0.16);
    k[4] = vec4(seedOffset(4), seedOffset(5));
    float reach = size * (0.29 + 0.05 * seedRandom(13)) / sqrt(lookScale);
    k[5] = vec4(0.9 + 0.8 * seedRandom(12), reach / radius, 0.0, 0.0);
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 q = p * k[0].w - k[0].xy;
    float r = max(length(q), 1e-4);
    float radius = k[0].z;
    float away = (r - radius) / radius;
    float beyond = max(away, 0.0);

    // The streams bend as they leave.
    float curl = min(lookWarp, 2.2) * 0.26 * beyond / (1.0 + beyond) * noise(q * 0.55 + k[4].zw, k[2]);
    vec2 ray = rotate(q / r, vec2(cos(curl), sin(curl)));
    float lit = 0.5 + 0.5 * dot(ray, k[1].xy);
    float reach = noise(ray * k[5].x + k[4].xy, k[2]);
    float rays = noise(ray * (k[1].z * 1.6 + 0.25 * beyond) + k[4].yz, k[3]);
    float fine = noise(ray * k[1].z * 4.5 + k[4].wx, k[3]);
    float span = k[5].y * max(0.75 + 0.45 * reach + 0.4 * rays + 0.55 * lit * lit, 0.3);
    float strand = 0.8 + 0.5 * rays + 0.3 * fine * saturate(2.0 * beyond);
    float corona = exp(-beyond / span) * strand * (0.45 + 0.75 * lit);

    float thin = max(0.036, 1.2 * k[1].w / radius);
    float outside = smoothstep(-0.6 * thin, 0.6 * thin, away);
    float rim = exp(-abs(away) / thin) * (0.4 + 2.4 * lit * lit);
    rim += 1.8 * lit * lit * outside * exp(-beyond / 0.12);
    float flare = 1.8 * exp(-length(q - radius * k[1].xy) / (0.15 * radius));
    return 0.02 + 1.02 * expose(outside * (corona + flare) + rim + 0.3 * flare * (1.0 - outside));
}
