// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// One character per cell, the denser the lighter or along the edge that it is on, in the tone's colour on the
// palette's darkest stop.

uniform sampler2D uGlyphs; // cells in a row: from blank to dense, then those for edges

vec3 shade(vec2 position)
{
    Inks inks = inksAt(position);
    float glyph = floor(inks.share * glyphCount);
    // The atlas leaves air around its characters; less of it makes a denser, brighter picture.
    vec2 place = (fract(position) - 0.5) / 1.35 + 0.5;
    float ink = texture(uGlyphs, vec2((glyph + place.x) / glyphCount, place.y)).r;
    return ink > 0.5 ? inks.upper : inks.lower;
}
