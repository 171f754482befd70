// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Cloth: strands over and under one another, rounded by their shading, with a shadow where they dive, and
// striped like a tartan. The weave is plain or a twill, even or uneven, by the seed; soft drapes of light run
// across it.

void prepare(inout vec4 k[8])
{
    k[0] = spin(0.08);
    k[1] = vec4(seedOffset(0), seedOffset(1));
    float turn = (seedRandom(4) < 0.6 ? 0.25 * pi : 0.0) + 0.4 * (seedRandom(5) - 0.5);
    float size = 2.8 + 2.0 * seedRandom(6);
    k[2] = vec4(cos(turn), sin(turn), size, 0.0);
    float light = tau * seedRandom(7);
    vec2 downhill = (0.8 + 0.4 * seedRandom(13)) * vec2(cos(light), sin(light));
    k[3] = vec4(downhill, loopAngle(0.21), tau * seedRandom(8));
    // The repeat of the weave and how many strands the crosswise ones pass over in it.
    float kind = seedRandom(9);
    vec2 weave = kind < 0.28 ? vec2(2.0, 1.0) : kind < 0.68 ? vec2(4.0, 2.0) : vec2(3.0, 2.0);
    float apart = (seedRandom(11) < 0.5 ? -1.0 : 1.0) * (0.06 + 0.08 * seedRandom(14));
    k[4] = vec4(weave, 0.25 + 0.3 * seedRandom(10), apart);
    k[5] = vec4(2.0 + floor(3.0 * seedRandom(12)), 1.5 * sqrt(lookScale), 0.0, 0.0);
}

/// The tone of a strand: that of its stripe.
float strandTone(float index, int set, vec4 k[8])
{
    float stripe = unit(hashBits(ivec2(int(floor(index / k[5].x)), set)));
    return 0.6 + k[4].z * (stripe - 0.5) + (set == 0 ? k[4].w : -k[4].w);
}

float pattern(vec2 p, vec4 k[8])
{
    vec2 bend = vec2(noise(p * 0.4 + k[1].xy, k[0]), noise(p * 0.4 + k[1].zw, k[0]));
    vec2 q = rotate(p + 0.13 * lookWarp * bend, k[2].xy) * k[2].z + 64.0;
    vec2 cell = floor(q);
    vec2 u = q - cell;
    // Which set is on top, and how far along its run over the other set's strands this place is.
    float count = mod(cell.x + cell.y, k[4].x);
    bool crosswise = count < k[4].y;
    float along = crosswise ? count + u.x : count - k[4].y + u.y;
    float run = crosswise ? k[4].y : k[4].x - k[4].y;
    float across = 2.0 * (crosswise ? u.y : u.x) - 1.0;
    float end = min(along, run - along);
    float top = crosswise ? strandTone(cell.y, 0, k) : strandTone(cell.x, 1, k);
    float under = crosswise ? strandTone(cell.x, 1, k) : strandTone(cell.y, 0, k);
    float strand = 0.88;
    float dome = sqrt(saturate(1.0 - across * across / (strand * strand)));
    float tone = top * (0.28 + 0.3 * dome + 0.55 * dome * dome);
    tone *= mix(0.35, 1.0, smoothstep(-0.08, 0.34, end));
    float width = max(2.0 * cellWidth() * k[2].z, 0.06);
    tone = mix(0.25 * under, tone, inside(abs(across) - strand, width));
    float drape = sin(k[5].y * dot(p, k[3].xy) + 1.2 * bend.x - k[3].z + k[3].w);
    return tone * (0.94 + 0.4 * drape);
}
