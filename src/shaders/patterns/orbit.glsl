// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Bodies on tilted concentric orbits around a glowing centre, each drawing an arc of light behind it.

#define kCentre k[0].xy
#define kFlatness k[0].z
#define kZoom k[0].w
#define kSize k[1].x
#define kCell k[1].y
#define kHair k[1].z
#define kFaint k[1].w // how bright the orbits are
#define kOrbit(i) k[2 + (i)] // the body's place in the orbit's own plane, the plane's cosine and sine

void prepare(inout vec4 k[8])
{
    vec2 shape = frameSize / min(frameSize.x, frameSize.y);
    float size = sqrt(shape.x * shape.y);
    vec2 center = shape * vec2(1.4, 1.1) * vec2(seedRandom(1) - 0.5, seedRandom(2) - 0.5);
    kCentre = center;
    kFlatness = 0.32 + 0.36 * seedRandom(3);
    kZoom = pow(lookScale, 0.7);
    kSize = size;
    kCell = pow(lookScale, 0.7) * cellWidth();
    float plane = (seedRandom(4) - 0.5) * 1.6;
    float spacing = pow(coarseness(), 0.7);
    kHair = 0.004 + 0.5 * kCell * saturate(coarseness() - 1.0);
    kFaint = 0.14 + 0.12 * saturate(3.0 * coarseness() - 4.2);
    float radius = size * (0.26 + 0.08 * seedRandom(5));
    for (int i = 0; i < 6; ++i) {
        float turn = plane + 0.1 * lookWarp * sin(2.4 * float(i) + tau * seedRandom(6));
        float angle = tau * seedRandom(10 + i) + loopAngle(0.12 * pow(size / radius, 1.3));
        kOrbit(i) = vec4(radius * vec2(cos(angle), sin(angle)), cos(turn), sin(turn));
        radius += size * (0.14 + 0.16 * seedRandom(20 + i)) * spacing;
    }
}

/// A wide bell, cheaper than an exponential.
float glow(float x)
{
    x = 1.0 + x * x;
    return 1.0 / (x * x);
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 q = p * kZoom - kCentre;
    float flatness = kFlatness;
    float width = kCell;
    float lines = 0.0;
    float light = 0.0;
    for (int i = 0; i < 6; ++i) {
        vec4 orbit = kOrbit(i);
        vec2 local = vec2(dot(q, orbit.zw), dot(q, vec2(-orbit.w, orbit.z)) / flatness);
        float r = max(length(local), 1e-3);
        vec2 gradient = vec2(local.x, local.y / flatness) / r;
        float radius = length(orbit.xy);
        float away = abs(r - radius) * inversesqrt(dot(gradient, gradient));
        vec2 ahead = vec2(dot(orbit.xy, local), orbit.x * local.y - orbit.y * local.x);
        float behind = fract(-atan(ahead.y, ahead.x) / tau);
        float mass = fract(radius * 14.5);
        float tail = exp(-behind * 5.5) * smoothstep(0.0, 0.004, behind);
        float thick = max(0.012 + 0.03 * tail * (0.5 + mass), width);
        lines = max(lines, 1.0 - smoothstep(kHair, kHair + 0.002 + width, away));
        light += tail * (1.3 * glow(0.8 * away / thick) + 0.35 * glow(away * 8.0));
        float d = length(q - rotate(vec2(orbit.x, orbit.y * flatness), orbit.zw));
        float size = 0.035 + 0.035 * mass;
        light += 2.5 * inside(d - size, 2.0 * width) + 0.5 * glow(max(d - size, 0.0) * 10.0);
    }
    float r = length(q) / kSize;
    float core = 3.0 * (1.0 - smoothstep(0.05, 0.1, r)) + 1.3 * exp(-r * 6.0) + 0.22 * exp(-r * 2.1);
    return 0.03 + kFaint * lines * exp(-r * 0.5) + 0.97 * expose(core + light);
}
