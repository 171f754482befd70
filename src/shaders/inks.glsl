// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// From a tone to its pair of inks.

uniform sampler2D uSteps; // the inks of the look
in_hoisted float vLevels; // how many there are

vec3 inkColor(float index) { return texelFetch(uSteps, ivec2(int(index), 0), 0).rgb; }

#ifdef GLYPH_INKS
in_hoisted vec3 vGround; // the darkest ink or the one above it, wherever the palette has it

/// How densely a tone is written, 0 to 1. Even the densest character covers less than half of its cell: the middle
/// tones lean to the dense side, but where there are few inks to tell them from the light ones.
float inkDensity(float tone)
{
    float lean = min(0.4 * vLevels - 1.0, 0.6);
    return tone * (1.0 + lean * (1.0 - tone));
}

/// Where a tone is among the inks. The thin strokes of a character need more light than a whole cell.
float inkPlace(float tone) { return min(tone * (1.4 - 0.4 * tone), 0.9999) * vLevels; }

/// Ground and ink of a character, which is lighter than the ground; the share is the middle of the character's place
/// in the atlas, 0 to 1.
Inks glyphInks(float index, float glyph)
{
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
