// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Liquid metal: a smooth height field that mirrors a studio, bright strips of light above a dark floor.
// Where the surface tips from one to the next the tone jumps, so that highlights are crisp lobes that follow
// the form, with soft gradients between them.

#define kSpin k[0]
#define kPlaces k[1]
#define kTurn k[2].xy
#define kStretch k[2].zw
#define kStudio k[3].xy
#define kLift k[3].z
#define kWall k[3].w
#define kDrift k[4]
#define kBend k[5].x
#define kSoft k[5].y

void prepare(inout vec4 k[8])
{
    kSpin = spin(0.06);
    kPlaces = vec4(seedOffset(0), seedOffset(1));
    float turn = tau * seedRandom(6);
    float size = (0.55 + 0.2 * seedRandom(7)) * pow(coarseness(), -0.3);
    kTurn = vec2(cos(turn), sin(turn));
    kStretch = vec2(size * (0.5 + 0.25 * seedRandom(8)), size);
    float studio = tau * seedRandom(9) + 0.35 * sin(loopAngle(0.07));
    kStudio = vec2(cos(studio), sin(studio));
    kLift = 0.1 + 0.2 * (seedRandom(10) - 0.5);
    kWall = 0.3 + 0.2 * seedRandom(11);
    // The last third of the warp bends little more, or the lobes would fray.
    kBend = lookWarp * (0.28 - 0.028 * lookWarp);
    kSoft = 0.06 + 0.012 * lookWarp;
    kDrift = vec4(0.3 * loopCircle(0.041), 0.3 * loopCircle(-0.03));
}

float strip(float x, float from, float to, float soft)
{
    return smoothstep(from - soft, from + soft, x) - smoothstep(to - soft, to + soft, x);
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 q = rotate(p, kTurn) * kStretch;
    vec2 bent = q * 0.8 + kPlaces.xy;
    vec2 w = q + kBend * vec2(noise(bent + kDrift.xy, kSpin), noise(bent + 37.0 - kDrift.xy, kSpin));
    vec3 large = noiseGradient(w + kPlaces.zw + kDrift.zw, kSpin);
    vec3 small = noiseGradient(octaveTurn * w + kPlaces.yx, kSpin);
    vec2 slope = 0.5 * large.yz + 0.06 * (small.yz * octaveTurn);
    vec2 normal = slope * inversesqrt(1.0 + dot(slope, slope));
    float side = dot(normal, vec2(-kStudio.y, kStudio.x));
    float ray = dot(normal, kStudio) + 0.2 * side * side + kLift;
    float soft = max(kSoft, 3.0 * cellWidth());
    float floorTone = 0.03 + 0.34 * smoothstep(0.05, 0.95, -ray);
    float wall = mix(0.92, 0.34, smoothstep(0.0, kWall + 0.1, ray));
    float tone = mix(floorTone, wall, smoothstep(-soft, soft, ray));
    tone += 0.3 * smoothstep(kWall + 0.3, 1.0, ray);
    tone += 0.62 * strip(ray, kWall + 0.12, kWall + 0.32, soft);
    return tone + 0.12 * large.x;
}
