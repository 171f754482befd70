// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Noise for the patterns. Everything is built on an integer hash, so that pictures are the same on every
// GPU, and on gradient noise on a simplex lattice, whose directions do not show.

/// Mixes all bits of x. Constants: Ettinger's search for low-bias 32-bit hashes.
uint mixBits(uint x)
{
    x ^= x >> 16u;
    x *= 0x7feb352du;
    x ^= x >> 15u;
    x *= 0x846ca68bu;
    return x ^ (x >> 16u);
}

/// What mixBits() is fed with for a lattice point, and the steps to its neighbours.
const uint latticeStepX = 0x9e3779b1u;
const uint latticeStepY = 0x85ebca77u;
uint latticeKey(ivec2 lattice) { return uint(lattice.x) * latticeStepX + uint(lattice.y) * latticeStepY; }

/// Random bits of a lattice point.
uint hashBits(ivec2 lattice) { return mixBits(latticeKey(lattice)); }

/// 0 to 1 from 24 of the bits.
float unit(uint bits) { return float(bits >> 8u) * (1.0 / 16777216.0); }

/// Two numbers 0 to 1 from the two halves of the bits.
vec2 unit2(uint bits) { return vec2(float(bits & 0xffffu), float(bits >> 16u)) * (1.0 / 65536.0); }

/// Random number `index` of this look's seed, 0 to 1. For prepare(): the same for every cell.
float seedRandom(int index) { return unit(mixBits(floatBitsToUint(lookSeed) + uint(index) * 0x9e3779b1u)); }

/// A place in noise space of the seed's own, far from that of every other seed.
vec2 seedOffset(int index) { return 200.0 * vec2(seedRandom(2 * index), seedRandom(2 * index + 1)) - 100.0; }

/// The next rate that comes round when the clock wraps at 2000 pi: a multiple of 1/1000.
float loopRate(float rate) { return floor(rate * 1000.0 + 0.5) * 0.001; }

/// An angle that advances by about `rate` radians per unit of time, without a seam when the clock wraps.
float loopAngle(float rate) { return mod(frameTime * loopRate(rate), tau); }

/// A point on the unit circle, going round at about `rate`.
vec2 loopCircle(float rate)
{
    float a = loopAngle(rate);
    return vec2(cos(a), sin(a));
}

/// How fast noise() churns: two turning directions at incommensurate rates, shared out over the lattice by
/// the hash, so that the noise never comes back as its own negative. For prepare().
vec4 spin(float rate) { return vec4(loopCircle(rate), loopCircle(rate * -0.618)); }

/// Turns v by the angle whose cosine and sine are c.
vec2 rotate(vec2 v, vec2 c) { return vec2(v.x * c.x - v.y * c.y, v.x * c.y + v.y * c.x); }

vec2 latticeGradient(uint bits, vec4 turn)
{
    vec2 v = unit2(bits) - 0.5;
    v *= inversesqrt(dot(v, v) + 1e-6);
    vec2 c = (bits & 1u) == 0u ? turn.xy : turn.zw;
    c.y = (bits & 65536u) == 0u ? c.y : -c.y;
    return rotate(v, c);
}

/// Simplex gradient noise with its gradient: x is the value, about -1 to 1, yz its derivatives.
/// Lattice: Perlin, "Noise hardware", 2001; turning gradients: Perlin and Neyret, "Flow noise", 2001.
vec3 noiseGradient(vec2 p, vec4 turn)
{
    const float skew = 0.366025403784;
    const float unskew = 0.211324865405;
    vec2 corner = floor(p + (p.x + p.y) * skew);
    vec2 d0 = p - corner + (corner.x + corner.y) * unskew;
    vec2 step1 = d0.x > d0.y ? vec2(1.0, 0.0) : vec2(0.0, 1.0);
    vec2 d1 = d0 - step1 + unskew;
    vec2 d2 = d0 - 1.0 + 2.0 * unskew;
    uint key = latticeKey(ivec2(corner));
    uint middle = d0.x > d0.y ? latticeStepX : latticeStepY;
    vec2 g0 = latticeGradient(mixBits(key), turn);
    vec2 g1 = latticeGradient(mixBits(key + middle), turn);
    vec2 g2 = latticeGradient(mixBits(key + latticeStepX + latticeStepY), turn);
    vec3 w = max(0.5 - vec3(dot(d0, d0), dot(d1, d1), dot(d2, d2)), 0.0);
    vec3 w2 = w * w;
    vec3 w4 = w2 * w2;
    vec3 slope = vec3(dot(g0, d0), dot(g1, d1), dot(g2, d2));
    vec3 inner = w * w2 * slope * -8.0;
    vec2 gradient = w4.x * g0 + w4.y * g1 + w4.z * g2 + inner.x * d0 + inner.y * d1 + inner.z * d2;
    return 99.2 * vec3(dot(w4, slope), gradient);
}

/// The same without the gradient.
float noise(vec2 p, vec4 turn) { return noiseGradient(p, turn).x; }

/// Fractal noise of two octaves, about -1 to 1. The octaves are turned against each other.
const mat2 octaveTurn = mat2(1.6, 1.2, -1.2, 1.6);
float fbm2(vec2 p, vec4 turn)
{
    return (noise(p, turn) + 0.5 * noise(octaveTurn * p + 17.3, turn)) * (1.0 / 1.3);
}

/// A point of a jittered lattice: the cell's own place in 0 to 1, wandering on a small circle.
/// `jitter` 0 leaves it in the middle, 1 lets it reach the cell's border.
vec2 latticePoint(ivec2 cell, float jitter, vec4 turn)
{
    return 0.5 + 0.5 * jitter * latticeGradient(hashBits(cell), turn);
}
