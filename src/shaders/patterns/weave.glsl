// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Cloth: strands over and under one another, rounded by their shading, with a shadow where they dive, and
// striped like a tartan. The weave is plain or a twill, even or uneven, by the seed; soft drapes of light run
// across it.

#define kSpin k[0]
#define kPlaces k[1]
#define kTurn k[2].xy
#define kDensity k[2].z
#define kDownhill k[3].xy
#define kDrapeClock k[3].z
#define kDrapePhase k[3].w
#define kWeave k[4].xy // its repeat, and how many strands the crosswise ones pass over in it
#define kStripes k[4].z
#define kApart k[4].w
#define kStripeWidth k[5].x
#define kDrapeRate k[5].y

void prepare(inout vec4 k[8])
{
    kSpin = spin(0.08);
    kPlaces = vec4(seedOffset(0), seedOffset(1));
    float turn = (seedRandom(4) < 0.6 ? 0.25 * pi : 0.0) + 0.4 * (seedRandom(5) - 0.5);
    float size = (2.8 + 2.0 * seedRandom(6)) * pow(coarseness(), -0.8);
    kTurn = vec2(cos(turn), sin(turn));
    kDensity = size;
    float light = tau * seedRandom(7);
    vec2 downhill = (0.8 + 0.4 * seedRandom(13)) * vec2(cos(light), sin(light));
    kDownhill = downhill;
    kDrapeClock = loopAngle(0.21);
    kDrapePhase = tau * seedRandom(8);
    // The repeat of the weave and how many strands the crosswise ones pass over in it.
    float kind = seedRandom(9);
    vec2 weave = kind < 0.28 ? vec2(2.0, 1.0) : kind < 0.68 ? vec2(4.0, 2.0) : vec2(3.0, 2.0);
    float apart = (seedRandom(11) < 0.5 ? -1.0 : 1.0) * (0.06 + 0.08 * seedRandom(14));
    kWeave = weave;
    kStripes = 0.25 + 0.3 * seedRandom(10);
    kApart = apart;
    kStripeWidth = 2.0 + floor(3.0 * seedRandom(12));
    kDrapeRate = 1.5 * sqrt(lookScale);
}

/// The tone of a strand: that of its stripe.
float strandTone(float index, int set, vec4 k[8])
{
    float stripe = unit(hashBits(ivec2(int(floor(index / kStripeWidth)), set)));
    return 0.6 + kStripes * (stripe - 0.5) + (set == 0 ? kApart : -kApart);
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 bend = vec2(noise(p * 0.4 + kPlaces.xy, kSpin), noise(p * 0.4 + kPlaces.zw, kSpin));
    vec2 q = rotate(p + 0.13 * lookWarp * bend, kTurn) * kDensity + 64.0;
    vec2 cell = floor(q);
    vec2 u = q - cell;
    // Which set is on top, and how far along its run over the other set's strands this place is.
    float count = mod(cell.x + cell.y, kWeave.x);
    bool crosswise = count < kWeave.y;
    float along = crosswise ? count + u.x : count - kWeave.y + u.y;
    float run = crosswise ? kWeave.y : kWeave.x - kWeave.y;
    float across = 2.0 * (crosswise ? u.y : u.x) - 1.0;
    float end = min(along, run - along);
    float top = crosswise ? strandTone(cell.y, 0, k) : strandTone(cell.x, 1, k);
    float under = crosswise ? strandTone(cell.x, 1, k) : strandTone(cell.y, 0, k);
    float strand = 0.88;
    float dome = sqrt(saturate(1.0 - across * across / (strand * strand)));
    float tone = top * (0.28 + 0.3 * dome + 0.55 * dome * dome);
    tone *= mix(0.35, 1.0, smoothstep(-0.08, 0.34, end));
    float width = clamp(2.0 * cellWidth() * kDensity, 0.06, 0.24);
    // Its end is as dark as it is where the next strand lies over it.
    tone = mix(0.25 * top, tone, saturate(2.0 * end / width));
    tone = mix(0.25 * under, tone, inside(abs(across) - strand, width));
    float drape = sin(kDrapeRate * dot(p, kDownhill) + 1.2 * bend.x - kDrapeClock + kDrapePhase);
    return tone * (0.94 + 0.4 * drape);
}
