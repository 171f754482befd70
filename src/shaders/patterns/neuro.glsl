// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A living web: nodes that wander, thin filaments grown between them, thicker at the nodes, and activity that
// lights one region after another.

#define kNodeSpin k[0]
#define kBendSpin k[1]
#define kPlaces k[2]
#define kTurn k[3].xy
#define kDensity k[3].z
#define kClock k[3].w
#define kWidth k[4].x // the least of a filament

void prepare(inout vec4 k[8])
{
    kNodeSpin = spin(0.12);
    kBendSpin = spin(0.08);
    kPlaces = vec4(seedOffset(0), seedOffset(1));
    float turn = tau * seedRandom(4);
    float density = (1.55 + 0.6 * seedRandom(5)) * pow(lookScale, 0.4) * pow(coarseness(), -0.8);
    kTurn = vec2(cos(turn), sin(turn));
    kDensity = density;
    kClock = loopAngle(0.4) / tau;
    kWidth = 0.9 * dotWidth() * density;
}

/// About exp(-x), 0 from x = 4 on: nothing reaches beyond the neighbouring cells of the lattice.
float fade(float x)
{
    x = max(1.0 - 0.25 * x, 0.0);
    x *= x;
    return x * x;
}

/// A filament from a to b, or none if the two nodes do not know each other: its core, and the glow around it.
/// A signal runs along it from the node of the lower number.
vec2 filament(vec2 p, vec3 a, vec3 b, float width, float clock)
{
    float kin = fract(91.7 * (a.z + b.z));
    vec2 d = b.xy - a.xy;
    float t = saturate(dot(p - a.xy, d) / max(dot(d, d), 1e-6));
    vec2 across = p - a.xy - d * t;
    float away = dot(across, across);
    float ends = 2.0 * t - 1.0;
    ends *= ends;
    float thick = max(0.013 + 0.038 * ends * ends, width);
    float known = smoothstep(0.38, 0.5, kin);
    float core = fade(away / (thick * thick));
    float near = fade(away * 420.0);
    float signal = (a.z < b.z ? t : 1.0 - t) - 1.5 * fract(clock + 7.0 * kin) + 0.25;
    return known * vec2(core, near) * (1.0 + 1.2 * fade(70.0 * signal * signal));
}

/// The node of the lattice's cell of this key, `offset` cells away: its place, and a number of its own.
vec3 node(uint key, vec2 offset, vec4 turn)
{
    uint bits = mixBits(key);
    return vec3(offset + 0.5 + 0.36 * latticeGradient(bits, turn), unit(bits * latticeStepX));
}

/// Light of a node.
float soma(vec2 p, vec3 node)
{
    vec2 offCenter = p - node.xy;
    float d = dot(offCenter, offCenter);
    float size = 0.05 + 0.06 * node.z;
    return 1.6 * fade(d / (size * size)) + 0.28 * fade(d * 6.0) * (0.3 + node.z);
}

float pattern(vec2 p, vec4 k[8])
{
    float density = kDensity;
    vec2 q = rotate(p, kTurn) * density + kPlaces.xy;
    // Bent along the contours of a noise, which neither gathers the nodes nor spreads them.
    vec3 slow = noiseGradient(q * 0.5 + kPlaces.zw, kBendSpin);
    vec2 bend = 0.2 * vec2(slow.z, -slow.y);
    q += 0.4 * lookWarp / (1.0 + 0.75 * lookWarp) * bend;
    vec2 f = fract(q);
    float width = kWidth;
    // Once round the cell's own node: the four beside it, each with the corner that follows it.
    uint key = latticeKey(ivec2(floor(q)));
    vec3 own = node(key, vec2(0.0), kNodeSpin);
    vec2 side = vec2(1.0, 0.0);
    uint toSide = latticeStepX;
    uint toNext = latticeStepY;
    vec3 last = node(key + toSide, side, kNodeSpin);
    float somas = soma(f, own);
    vec2 web = vec2(0.0);
    for (int i = 0; i < 4; ++i) {
        vec2 onward = vec2(-side.y, side.x);
        vec3 corner = node(key + toSide + toNext, side + onward, kNodeSpin);
        vec3 next = node(key + toNext, onward, kNodeSpin);
        somas += soma(f, corner) + soma(f, next);
        web += filament(f, own, corner, width, kClock) + filament(f, own, next, width, kClock);
        web += filament(f, last, next, width, kClock);
        side = onward;
        last = next;
        uint opposite = 0u - toSide;
        toSide = toNext;
        toNext = opposite;
    }
    float activity = 0.57 + 0.55 * slow.x;
    float fibres = 1.0 - abs(noise(q * 1.9 + kPlaces.wx + bend, kNodeSpin));
    fibres *= fibres * fibres;
    float light = (web.x * 0.9 + 0.22 * web.y + somas) * max(activity, 0.17) + 0.16 * fibres * fibres;
    return 0.02 + 1.02 * expose(1.25 * light);
}
