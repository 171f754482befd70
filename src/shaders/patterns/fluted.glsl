// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Reeded glass: upright ribs, each of which refracts a soft moving glow behind it. A rib shows a wide piece
// of what is behind, mirrored and squeezed, so that shapes come back as rows of slices.

void prepare(inout vec4 k[8])
{
    k[0] = vec4(3.8 + 4.2 * seedRandom(1), 0.24 + 0.3 * seedRandom(2), 0.5 * seedRandom(0), 0.0);
    vec2 aspect = frameSize / min(frameSize.x, frameSize.y);
    // A lamp, a glow and a shade. The lamp is a disc, a ring or the rim of a large disc outside.
    float start = tau * seedRandom(3);
    float kind = seedRandom(21);
    for (int i = 0; i < 3; ++i) {
        float angle = start + tau / 3.0 * (float(i) + 0.5 * seedRandom(i + 4));
        float away = i > 0 ? 0.8 : kind < 0.65 ? 0.4 : 1.0;
        vec2 towards = vec2(cos(angle), sin(angle));
        float size = i == 0 ? 0.55 + 0.3 * seedRandom(16) : 0.7 + 0.5 * seedRandom(i + 16);
        if (i == 0 && kind >= 0.65) {
            size += 0.9;
            away = (size - 0.15) / length(aspect * towards) + 0.1 * seedRandom(22);
        }
        float rate = (0.1 + 0.06 * seedRandom(i + 8)) * (seedRandom(i + 12) < 0.5 ? -1.0 : 1.0);
        k[i + 1] = vec4(away * aspect * towards + 0.25 * loopCircle(rate), size, 0.0);
    }
    k[1].w = kind < 0.3 ? 0.5 : -1.0;
    k[4] = spin(0.12);
    // What is behind is far away: it shrinks less than the zoom says.
    k[5] = vec4(seedOffset(10), seedRandom(20) < 0.5 ? -0.18 : 0.18, pow(lookScale, 0.6));
}

/// The light behind the glass.
float behind(vec2 p, vec4 k[8])
{
    vec2 q = p + 0.2 * lookWarp * vec2(noise(p * 0.5 + k[5].xy, k[4]), noise(p * 0.5 - k[5].yx, k[4]));
    vec2 fromLamp = (q - k[1].xy) / k[1].z;
    float away = length(fromLamp);
    float soft = 0.1 / k[1].z;
    float lamp = smoothstep(-soft, soft, 1.0 - away) * smoothstep(-soft, soft, away - k[1].w);
    float glow = bell(length(q - k[2].xy) / k[2].z, 1.1);
    float shade = bell(length(q - k[3].xy) / k[3].z, 1.0);
    float sky = 0.34 + k[5].z * q.y + 0.35 * glow;
    return mix(sky * (1.0 - 0.85 * shade), 0.86 + 0.2 * fromLamp.y, lamp);
}

float pattern(vec2 p, vec4 k[8])
{
    float along = p.x * k[0].x + k[0].z;
    float u = 2.0 * fract(along) - 1.0;
    vec2 seen = p;
    seen.x -= k[0].y * u * (0.55 + 0.45 * u * u);
    float tone = behind(seen * k[5].w, k);
    float cell = cellWidth() * k[0].x * 2.0;
    float groove = smoothstep(1.0 - max(0.3, cell), 1.0, abs(u));
    return tone * (1.0 - 0.6 * groove) + 0.1 * bell(u + 0.5, 0.2);
}
