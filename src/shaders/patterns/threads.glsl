// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Many fine strings along a current. Each layer is a sheet of strings that spreads into a fan and is
// pinched together again; where they crowd, they merge into light.

#define kTurn k[0].xy
#define kSpread k[0].z
#define kStrings k[0].w // how many of a sheet's strings there are
#define kHair k[6].x // half the width of a string in cells
#define kSpin k[1]
#define kPlaces k[2]
#define kSheet(i) k[3 + (i)] // middle line: height, swing and its phase; phase of the pinching

void prepare(inout vec4 k[8])
{
    float turn = 0.5 * (2.0 * seedRandom(0) - 1.0) + (seedRandom(1) < 0.25 ? 0.5 * pi : 0.0);
    // The sheets spread over the picture's extent across the current.
    vec2 aspect = frameSize / min(frameSize.x, frameSize.y);
    float extent = dot(abs(vec2(sin(turn), cos(turn))), aspect);
    kTurn = vec2(cos(turn), sin(turn));
    kSpread = 0.35 + 0.6 * extent;
    kStrings = pow(coarseness(), -1.25);
    kHair = (0.45 + 0.3 * saturate(coarseness() - 1.0)) * dotWidth() / cellWidth();
    kSpin = spin(0.06);
    kPlaces = vec4(seedOffset(2) + 0.3 * loopCircle(0.04), seedOffset(3));
    for (int i = 0; i < 3; ++i) {
        float wander = loopAngle(0.07 + 0.023 * float(i));
        // The middle line: height, swing, its phase; the phase of the pinching.
        kSheet(i) = vec4(0.9 * seedRandom(8 + i) - 0.45, 0.12 + 0.28 * seedRandom(11 + i),
                        tau * seedRandom(14 + i) + 0.5 * sin(wander),
                        tau * seedRandom(17 + i) + 0.6 * cos(wander));
    }
}

/// One sheet of strings: its light at this place. `bend` are two noises with their slopes along the current.
float sheet(vec2 q, vec4 shape, vec4 bend, float count, float rate, vec4 k[8])
{
    vec2 way = vec2(1.1 * q.x * rate + shape.z, 0.9 * q.x * rate + shape.w + bend.y);
    float spread = kSpread;
    float cell = cellWidth();
    count *= kStrings;
    float middle = spread * (shape.x + shape.y * sin(way.x)) + 0.22 * bend.x;
    float pinch = 0.5 + 0.5 * sin(way.y);
    float width = spread * (0.09 + 0.95 * pinch * pinch);
    float across = (q.y - middle) / width;
    // How steeply the strings run here: their distance is measured square to them.
    float lean = spread * shape.y * 1.1 * rate * cos(way.x) + 0.22 * bend.z;
    lean += across * spread * 0.95 * pinch * cos(way.y) * (0.9 * rate + bend.w);
    float string = across * count;
    float nearest = floor(string) + 0.5;
    float spacing = width / count * inversesqrt(1.0 + lean * lean);
    float d = (string - nearest) * spacing;
    float own = unit(hashBits(ivec2(int(nearest), int(count))));
    float halfWidth = max(0.006, kHair * cell);
    float coverage = min(2.0 * halfWidth / spacing, 1.0);
    float line = stroke(d, halfWidth, 1.2 * cell) * (0.45 + 0.55 * own);
    // Crowded strings become a sheet, brighter toward one rim.
    float solid = coverage * (0.35 + 0.5 * bell(across - 0.45, 0.5));
    line = mix(line, solid, smoothstep(0.35, 0.8, coverage));
    return line * smoothstep(1.0, 0.8, abs(across)) + 0.12 * bell(across, 0.9) * coverage;
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 q = rotate(p, kTurn);
    vec2 stretch = vec2(0.55, 0.2);
    vec3 sway = noiseGradient(q * stretch + kPlaces.xy, kSpin);
    vec3 ease = noiseGradient(q * stretch + kPlaces.zw, kSpin);
    vec4 bend = 0.8 * lookWarp * vec4(sway.x, ease.x, stretch.x * sway.y, stretch.x * ease.y);
    float light = sheet(q, kSheet(0), bend, 12.0, 0.9, k);
    light += 0.8 * sheet(q, kSheet(1), bend.yxwz, 10.0, 1.15, k);
    light += 0.6 * sheet(q, kSheet(2), -bend, 14.0, 0.75, k);
    float ground = 0.27 + 0.13 * clamp(bend.x, -1.0, 1.0) + 0.24 * q.x / (1.0 + abs(q.x));
    return ground + 0.85 * expose(1.3 * light) * (1.0 - 0.5 * ground);
}
