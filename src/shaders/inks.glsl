// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// From a tone to its pair of inks.

in_hoisted vec3 vInk[5]; // dark to light as the palette has them
in_hoisted vec2 vLevels; // how many inks; how wide the dithered band between two is, as a share of a step

vec3 inkColor(float index)
{
    vec3 color = vInk[0];
    color = index > 0.5 ? vInk[1] : color;
    color = index > 1.5 ? vInk[2] : color;
    color = index > 2.5 ? vInk[3] : color;
    return index > 3.5 ? vInk[4] : color;
}

#ifdef GLYPH_INKS
in_hoisted vec3 vGround; // the darkest ink, wherever the palette has it

/// Ground and ink of a character; the share is the middle of the character's place in the atlas, 0 to 1.
Inks glyphInks(float tone, float glyph)
{
    return Inks(vGround, inkColor(floor(min(tone, 0.9999) * vLevels.x)), (glyph + 0.5) / 16.0);
}
#else
Inks inksOf(float tone)
{
    float position = tone * vLevels.x - 0.5;
    float lower = floor(position);
    float share = (position - lower - 0.5) / vLevels.y + 0.5;
    return Inks(inkColor(lower), inkColor(min(lower + 1.0, vLevels.x - 1.0)), saturate(share));
}
#endif
