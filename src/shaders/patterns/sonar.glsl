// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A radar screen, seen straight on or tilted: one beam or more that go round and leave an afterglow, faint range
// rings, and a few contacts that flare up as a beam passes them.

#define kCentre k[0].xy
#define kBeam k[0].zw
#define kSector k[1].x // the angle from one beam to the next
#define kSpacing k[1].y
#define kZoom k[1].z
#define kCell k[1].w
#define kPlace k[2].xy
#define kClutter k[2].z
#define kDecay k[2].w
#define kContactPlace(i) k[3 + (i)].xy
#define kContactFlare(i) k[3 + (i)].z
#define kContactSize(i) k[3 + (i)].w
#define kLean k[7].xy
#define kFaint k[7].w // how bright the rings are
#define kTilt k[7].z // 1 / flatness of the screen, negative where the beams go round the other way

/// A point of the picture on the tilted screen.
vec2 onScreen(vec2 q, vec2 lean, float tilt) { return vec2(dot(q, lean), dot(q, vec2(-lean.y, lean.x)) * tilt); }

void prepare(inout vec4 k[8])
{
    vec2 shape = frameSize / min(frameSize.x, frameSize.y);
    float size = sqrt(shape.x * shape.y);
    vec2 place = vec2(1.6, 1.5) * vec2(seedRandom(1) - 0.5, seedRandom(2) - 0.5);
    vec2 center = shape * place;
    float beam = tau * seedRandom(3) - loopAngle(0.3);
    float spacing = size * (0.14 + 0.24 * seedRandom(4)) * pow(coarseness(), 0.8);
    // From the edge of the picture a single beam would be out of sight half of the time.
    float beams = floor(1.2 + 0.7 * seedRandom(7) + 2.2 * length(place));
    float sector = tau / beams;
    float lean = seedRandom(8) - 0.5;
    kLean = vec2(cos(lean), sin(lean));
    kTilt = (seedRandom(9) < 0.5 ? 1.0 : -1.0) / (seedRandom(10) < 0.4 ? 1.0 : 0.45 + 0.4 * seedRandom(11));
    kSector = sector;
    kCentre = center;
    kBeam = vec2(cos(beam), sin(beam));
    kSpacing = spacing;
    kZoom = sqrt(lookScale);
    kCell = sqrt(lookScale) * cellWidth();
    kPlace = seedOffset(3);
    kClutter = 2.0 + 1.5 * seedRandom(5);
    kFaint = 0.17 + 0.2 * saturate(3.0 * coarseness() - 4.2);
    kDecay = (0.79 + 0.15 * seedRandom(6)) * beams;
    for (int i = 0; i < 4; ++i) {
        vec2 within = vec2((float(i) + seedRandom(21 + i)) / 4.0, seedRandom(31 + i));
        vec2 contact = onScreen(shape * (1.8 * within - 0.9) - center, kLean, kTilt);
        float since = mod(atan(contact.y, contact.x) - beam, sector);
        float flare = smoothstep(0.0, 0.15, since) * exp(-0.45 * since);
        flare *= 1.0 - smoothstep(sector - 0.4, sector, since);
        kContactPlace(i) = contact;
        kContactFlare(i) = flare;
        kContactSize(i) = 0.035 + 0.03 * seedRandom(41 + i);
    }
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 q = onScreen(p * kZoom - kCentre, kLean, kTilt);
    float r = max(length(q), 1e-4);
    float width = kCell;
    vec2 local = vec2(dot(q, kBeam), dot(q, vec2(-kBeam.y, kBeam.x)));
    float since = atan(local.y, local.x);
    since -= kSector * floor(since / kSector);

    // Echoes of the sea: clutter drawn out around the centre, as a radar sees it.
    vec2 ray = q / r;
    float far = noise(ray * kClutter + vec2(r * 1.4, -r * 1.1) + kPlace, vec4(1.0, 0.0, 1.0, 0.0));
    float near = noise(q * 2.2 + 0.4 * min(lookWarp, 1.3) * far + kPlace.yx, vec4(1.0, 0.0, 1.0, 0.0));
    float echo = 1.0 + 0.42 * min(lookWarp, 1.6) * (0.6 * far * smoothstep(0.0, 0.7, r) + 0.5 * near);
    float fall = 1.0 / (1.0 + 0.22 * r * r);
    // The front of the beam is an edge, but a few degrees of it, so that it glides from cell to cell; behind
    // it the glow decays.
    float front = smoothstep(0.0, max(0.09, 1.5 * width / r), since);
    front *= 1.0 - smoothstep(kSector - 0.3, kSector, since);
    float glow = front * (0.9 * exp(-kDecay * since) * max(echo, 0.2) + 0.4 * exp(-since * 7.0)) * fall;

    float ring = abs(mod(r + 0.5 * kSpacing, kSpacing) - 0.5 * kSpacing);
    float line = max(0.006, 0.7 * width);
    // What is far along the tilted screen is near in the picture: lines keep their width there.
    vec2 slope = q / r * vec2(1.0, kTilt);
    ring *= inversesqrt(dot(slope, slope));
    float grid = kFaint * (1.0 - smoothstep(line, line + width, ring));
    grid = max(grid, 0.6 * kFaint * (1.0 - smoothstep(line, line + width, min(abs(q.x), abs(q.y / kTilt)))));
    float contacts = 0.0;
    for (int i = 0; i < 4; ++i) {
        float away = length(q - kContactPlace(i)) / kContactSize(i);
        contacts += kContactFlare(i) * (1.1 * (1.0 - smoothstep(0.7, 1.3, away)) + 0.6 * exp(-away * 0.7));
    }
    return 0.03 + 0.04 * fall + grid * (0.7 + 1.4 * glow) + 1.05 * expose(1.8 * glow + 1.5 * contacts);
}
