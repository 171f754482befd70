// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Satin in folds: a few large drapes across one direction, each with a long highlight where its slope
// faces the light and a deep valley beside it.

#define kTurn k[0].xy
#define kFolds k[0].z
#define kPhase k[0].w
#define kSpin k[1]
#define kPlaces k[2]
#define kFinePlace k[3].xy
#define kLean k[3].z
#define kClock k[4].x
#define kSecondPhase k[4].y
#define kFine k[4].z

void prepare(inout vec4 k[8])
{
    float turn = 0.35 * pi * (2.0 * seedRandom(0) - 1.0) + (seedRandom(1) < 0.3 ? 0.5 * pi : 0.0);
    // The phase keeps a lit flank near the middle of the picture.
    kTurn = vec2(cos(turn), sin(turn));
    kFolds = 1.6 + 1.2 * seedRandom(2);
    kPhase = 2.6 * seedRandom(3) - 0.3;
    kSpin = spin(0.07);
    kPlaces = vec4(seedOffset(2) + 0.3 * loopCircle(0.05), seedOffset(3));
    kFinePlace = seedOffset(4);
    kLean = 0.15 + 0.3 * seedRandom(10);
    kClock = loopAngle(0.08);
    kFine = 0.28 + 0.35 * plainness();
    kSecondPhase = 0.5 + 2.0 * seedRandom(12);
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 q = rotate(p, kTurn);
    // Slow along the folds (y), quicker across them.
    float sway = noise(q * vec2(0.3, 0.36) + kPlaces.xy, kSpin);
    float pinch = noise(q * vec2(0.5, 0.32) + kPlaces.zw, kSpin);
    float across = q.x + lookWarp * (0.27 * sway + 0.09 * pinch) + kLean * q.y;
    float phase = across * kFolds * 2.2 + 0.85 * lookWarp * pinch + kPhase + 0.5 * sin(kClock);
    // Two trains of folds whose beat makes large and small drapes.
    float second = phase * 0.618 + 1.7 * sway + kSecondPhase;
    float height = sin(phase) + 0.7 * sin(second);
    float slope = cos(phase) + 0.43 * cos(second);
    float fine = noise(vec2(across * 3.0, q.y * 0.45) + kFinePlace, kSpin);
    slope += kFine * fine;
    float valley = smoothstep(-1.9, 0.3, height);
    float shine = bell(slope - 0.55, 0.42) + 0.35 * bell(slope + 0.75, 0.3);
    float sheen = 0.5 + 0.5 * slope;
    return (0.25 + 0.75 * valley) * (0.14 + 0.4 * sheen + 0.62 * shine * (0.8 + 0.3 * pinch)) + 0.04;
}
