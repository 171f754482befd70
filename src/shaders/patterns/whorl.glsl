// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A fingerprint. The ridges are the level lines of the distance to two or three short strokes, so they
// keep an even width, loop round the ends of the strokes and meet in deltas between them. Phase vortices,
// each of which adds one line on one side of it, make the ridge ends and forks.

#define kStroke(i) k[i] // its ends
#define kRidgeRate k[3].x
#define kClock k[3].y
#define kLight k[3].zw
#define kVortices(i) k[4 + (i)] // two of alternating sense

void prepare(inout vec4 k[8])
{
    vec2 aspect = frameSize / min(frameSize.x, frameSize.y);
    bool three = seedRandom(0) < 0.6;
    float count = three ? 3.0 : 2.0;
    float start = tau * seedRandom(1);
    for (int i = 0; i < 3; ++i) {
        float angle = start + tau * (float(i) + 0.35 * seedRandom(2 + i)) / count;
        vec2 middle = (0.45 + 0.35 * seedRandom(5 + i)) * aspect * vec2(cos(angle), sin(angle));
        float turn = tau * seedRandom(8 + i) + 0.25 * sin(loopAngle(0.06) + 2.0 * float(i));
        vec2 arm = (0.05 + 0.3 * seedRandom(11 + i)) * vec2(cos(turn), sin(turn));
        kStroke(i) = vec4(middle - arm, middle + arm);
    }
    float waves = tau / (0.125 + 0.05 * seedRandom(14)) * pow(coarseness(), -0.85);
    float light = tau * seedRandom(15);
    kRidgeRate = waves;
    kClock = loopAngle(0.3);
    kLight = vec2(cos(light), sin(light));
    // A picture of two strokes has its third one far outside.
    if (!three)
        kStroke(2) += 50.0;
    for (int i = 0; i < 4; ++i) {
        vec4 place = vec4(seedRandom(20 + 4 * i), seedRandom(21 + 4 * i), seedRandom(22 + 4 * i),
                          seedRandom(23 + 4 * i));
        vec2 drift = 0.04 * loopCircle(0.05 + 0.01 * float(i));
        kVortices(i) = (2.2 * place - 1.1) * aspect.xyxy + vec4(drift, -drift);
    }
}

float pattern(vec2 p, vec4 k[8])
{
    vec4 still = vec4(1.0, 0.0, 1.0, 0.0);
    vec2 place = vec2(50.0, 20.0) + 30.0 * kLight;
    vec2 bend = vec2(noise(p * 0.5 + place, still), noise(p * 0.5 - place.yx, still));
    vec2 q = p + lookWarp * 0.17 * bend;
    float d = segmentDistance(q, kStroke(0).xy, kStroke(0).zw);
    d = smoothMin(d, segmentDistance(q, kStroke(1).xy, kStroke(1).zw) + 0.06, 0.16);
    d = smoothMin(d, segmentDistance(q, kStroke(2).xy, kStroke(2).zw), 0.16);
    // Vortices of alternating sense, so that their far fields cancel.
    vec2 vortices = vec2(1.0, 0.0);
    for (int i = 0; i < 4; ++i) {
        vec2 one = q - kVortices(i).xy;
        vec2 other = q - kVortices(i).zw;
        vortices = rotate(rotate(vortices, one), vec2(other.x, -other.y));
    }
    // In the middle of one, a cell or less wide, there is no ridge.
    vortices *= inversesqrt(dot(vortices, vortices) + 0.25 * cellWidth() * cellWidth());
    float phase = kRidgeRate * d - kClock;
    float wave = cos(phase) * vortices.x + sin(phase) * vortices.y;
    // Ridges closer than the cells can show fade to their mean.
    wave *= smoothstep(1.2, 3.5, tau / (kRidgeRate * cellWidth()));
    float ridge = smoothstep(-0.6, 0.85, wave + 0.25 * bend.x);
    float light = 0.5 + 0.5 * cos(1.1 * dot(p, kLight) + 1.2 * bend.y);
    float top = mix(0.55, 1.0, light) / (1.0 + 0.1 * d);
    float valley = mix(0.02, 0.16, light);
    return mix(valley, top, ridge);
}
