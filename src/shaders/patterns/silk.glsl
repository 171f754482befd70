// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Satin in folds: a few large drapes across one direction, each with a long highlight where its slope
// faces the light and a deep valley beside it.

void prepare(inout vec4 k[8])
{
    float turn = 0.35 * pi * (2.0 * seedRandom(0) - 1.0) + (seedRandom(1) < 0.3 ? 0.5 * pi : 0.0);
    // The phase keeps a lit flank near the middle of the picture.
    k[0] = vec4(cos(turn), sin(turn), 1.6 + 1.2 * seedRandom(2), 2.6 * seedRandom(3) - 0.3);
    k[1] = spin(0.07);
    k[2] = vec4(seedOffset(2) + 0.3 * loopCircle(0.05), seedOffset(3));
    k[3] = vec4(seedOffset(4), 0.15 + 0.3 * seedRandom(10), 0.0);
    k[4] = vec4(loopAngle(0.08), 0.5 + 2.0 * seedRandom(12), 0.0, 0.0);
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 q = rotate(p, k[0].xy);
    // Slow along the folds (y), quicker across them.
    float sway = noise(q * vec2(0.3, 0.36) + k[2].xy, k[1]);
    float pinch = noise(q * vec2(0.5, 0.32) + k[2].zw, k[1]);
    float across = q.x + lookWarp * (0.27 * sway + 0.09 * pinch) + k[3].z * q.y;
    float phase = across * k[0].z * 2.2 + 0.85 * lookWarp * pinch + k[0].w + 0.5 * sin(k[4].x);
    // Two trains of folds whose beat makes large and small drapes.
    float second = phase * 0.618 + 1.7 * sway + k[4].y;
    float height = sin(phase) + 0.7 * sin(second);
    float slope = cos(phase) + 0.43 * cos(second);
    float fine = noise(vec2(across * 3.0, q.y * 0.45) + k[3].xy, k[1]);
    slope += 0.28 * fine;
    float valley = smoothstep(-1.9, 0.3, height);
    float shine = bell(slope - 0.55, 0.42) + 0.35 * bell(slope + 0.75, 0.3);
    float sheen = 0.5 + 0.5 * slope;
    return (0.25 + 0.75 * valley) * (0.14 + 0.4 * sheen + 0.62 * shine * (0.8 + 0.3 * pinch)) + 0.04;
}
