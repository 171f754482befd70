// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// From a tone to its pair of inks.

uniform sampler2D uSteps; // the inks of the look
in_hoisted float vLevels; // how many there are

vec3 inkColor(float index) { return texelFetch(uSteps, ivec2(int(index), 0), 0).rgb; }

#ifdef GLYPH_INKS
in_hoisted vec3 vGround; // the darkest ink or the one above it, wherever the palette has it

/// Ground and ink of a character; the share is the middle of the character's place in the atlas, 0 to 1. The thin
/// strokes of a character need more light than a whole cell, and an ink that is lighter than the ground.
Inks glyphInks(float tone, float glyph)
{
    float index = floor(min(tone * (1.4 - 0.4 * tone), 0.9999) * vLevels);
    vec3 ink = inkColor(index);
    float onward = index < 0.5 * vLevels ? 1.0 : -1.0;
    for (int i = 0; i < 2; ++i) {
        index += brightness(ink) > brightness(vGround) ? 0.0 : onward;
        ink = inkColor(index);
    }
    return Inks(vGround, ink, (glyph + 0.5) / glyphCount);
}
#else
Inks inksOf(float tone)
{
    float position = tone * vLevels - 0.5;
    float lower = floor(position);
    return Inks(inkColor(max(lower, 0.0)), inkColor(min(lower + 1.0, vLevels - 1.0)), position - lower);
}
#endif
