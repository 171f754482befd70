// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A radar screen: a beam that goes round and leaves an afterglow, faint range rings, and a few contacts that
// flare up as the beam passes them.

#define kCentre k[0].xy
#define kBeam k[0].zw
#define kSpacing k[1].y
#define kZoom k[1].z
#define kCell k[1].w
#define kPlace k[2].xy
#define kClutter k[2].z
#define kDecay k[2].w
#define kContactPlace(i) k[3 + (i)].xy
#define kContactFlare(i) k[3 + (i)].z
#define kContactSize(i) k[3 + (i)].w

void prepare(inout vec4 k[8])
{
    vec2 shape = frameSize / min(frameSize.x, frameSize.y);
    float size = sqrt(shape.x * shape.y);
    vec2 center = shape * vec2(0.28, 0.26) * vec2(seedRandom(1) - 0.5, seedRandom(2) - 0.5);
    float beam = tau * seedRandom(3) - loopAngle(0.3);
    float spacing = size * (0.2 + 0.12 * seedRandom(4));
    kCentre = center;
    kBeam = vec2(cos(beam), sin(beam));
    kSpacing = spacing;
    kZoom = sqrt(lookScale);
    kCell = sqrt(lookScale) * cellWidth();
    kPlace = seedOffset(3);
    kClutter = 2.0 + 1.5 * seedRandom(5);
    kDecay = 1.0 + 0.2 * seedRandom(6);
    for (int i = 0; i < 5; ++i) {
        float bearing = tau * (seedRandom(20) + (float(i) + 0.7 * seedRandom(21 + i)) / 5.0);
        float range = size * (0.25 + 0.55 * seedRandom(31 + i));
        float since = mod(bearing - beam, tau);
        float flare = smoothstep(0.0, 0.15, since) * exp(-0.45 * since);
        flare *= 1.0 - smoothstep(tau - 0.4, tau, since);
        kContactPlace(i) = range * vec2(cos(bearing), sin(bearing));
        kContactFlare(i) = flare;
        kContactSize(i) = 0.035 + 0.03 * seedRandom(41 + i);
    }
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 q = p * kZoom - kCentre;
    float r = max(length(q), 1e-4);
    float width = kCell;
    vec2 local = vec2(dot(q, kBeam), dot(q, vec2(-kBeam.y, kBeam.x)));
    float since = atan(local.y, local.x);
    since = since < 0.0 ? since + tau : since;

    // Echoes of the sea: clutter drawn out around the centre, as a radar sees it.
    vec2 ray = q / r;
    float far = noise(ray * kClutter + vec2(r * 1.4, -r * 1.1) + kPlace, vec4(1.0, 0.0, 1.0, 0.0));
    float near = noise(q * 2.2 + 0.4 * min(lookWarp, 1.3) * far + kPlace.yx, vec4(1.0, 0.0, 1.0, 0.0));
    float echo = 1.0 + 0.42 * min(lookWarp, 1.6) * (0.6 * far * smoothstep(0.0, 0.7, r) + 0.5 * near);
    float fall = 1.0 / (1.0 + 0.22 * r * r);
    // The front of the beam is an edge, but a few degrees of it, so that it glides from cell to cell; behind
    // it the glow decays.
    float front = smoothstep(0.0, max(0.09, 1.5 * width / r), since);
    front *= 1.0 - smoothstep(tau - 0.3, tau, since);
    float glow = front * (0.9 * exp(-kDecay * since) * max(echo, 0.2) + 0.4 * exp(-since * 7.0)) * fall;

    float ring = abs(mod(r + 0.5 * kSpacing, kSpacing) - 0.5 * kSpacing);
    float line = max(0.006, 0.7 * width);
    float grid = 0.17 * (1.0 - smoothstep(line, line + width, ring));
    grid = max(grid, 0.1 * (1.0 - smoothstep(line, line + width, min(abs(q.x), abs(q.y)))));
    float contacts = 0.0;
    for (int i = 0; i < 5; ++i) {
        float away = length(q - kContactPlace(i)) / kContactSize(i);
        contacts += kContactFlare(i) * (1.1 * (1.0 - smoothstep(0.7, 1.3, away)) + 0.6 * exp(-away * 0.7));
    }
    return 0.03 + 0.04 * fall + grid * (0.7 + 1.4 * glow) + 1.05 * expose(1.8 * glow + 1.5 * contacts);
}
