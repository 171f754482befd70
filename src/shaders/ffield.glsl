// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// One cell of the field: its tone. Where only some tiles of it are wanted, a sample of one of them: its plain tone.

out float outTone;

#ifdef TILES
uniform usampler2D uTiles; // column and row of each tile
uniform vec3 uSampling;    // samples along a tile, cells from one to the next, cells along a tile

float wantedTone()
{
    vec2 tile = floor(gl_FragCoord.xy / uSampling.x);
    vec2 first = vec2(texelFetch(uTiles, ivec2(tile), 0).xy) * uSampling.z;
    return 0.25 * plainToneAt(first + (floor(gl_FragCoord.xy) - tile * uSampling.x) * uSampling.y) + 0.375;
}
#else

float wantedTone() { return toneAt(position()); }
#endif

void main()
{
    outTone = wantedTone();
    // Never so. A software renderer compiles a shader that cannot discard twice, once for whole blocks, and
    // the patterns take most of the time that a new look has to wait.
    if (outTone < -1.0)
        discard;
}
