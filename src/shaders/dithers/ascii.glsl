// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// One character per cell, the denser the lighter or along the edge that it is on, in the tone's colour on the
// palette's darkest ink or the one above it.

const float glyphSide = 48.0; // of a character in the atlas, in texels

uniform sampler2D uGlyphs; // cells in a row: from blank to dense, then those for edges

vec3 shade(vec2 position)
{
    Inks inks = inksAt(position);
    float glyph = floor(inks.share * glyphCount);
    // The atlas leaves air around its characters, most of it beside them; less of it makes a denser, brighter picture,
    // and an even one.
    vec2 place = (fract(position) - 0.5) / vec2(1.6, 1.35) + 0.5;
    // The smaller a character is drawn, the less of its strokes is left in any one pixel. Too small to be read, it is
    // the more pixels the more ink it has: a wall of letters would be a wall of noise.
    float level = max(log2(glyphSide / (1.45 * cellSize)), 0.0);
    float tiny = 1.0 - smoothstep(5.5, 8.5, cellSize);
    vec2 pixel = mod(floor(fract(position) * cellSize), 2.0);
    float order = 0.6 * (0.125 + 0.5 * abs(pixel.x - pixel.y) + 0.25 * pixel.y);
    float ink = textureLod(uGlyphs, vec2((glyph + place.x) / glyphCount, place.y), min(level + tiny, 4.0)).r;
    return ink > mix(0.5 - 0.08 * min(level, 3.0), order, tiny) ? inks.upper : inks.lower;
}
