// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The inks at a position, worked out from the tone there.

#ifdef GLYPH_INKS
// Where the characters for edges are in the atlas.
const float glyphLevel = 6.0;    // -
const float glyphRising = 16.0;  // a slash
const float glyphFalling = 17.0; // a backslash
const float glyphUpright = 18.0; // |
const float glyphLow = 19.0;     // _

Inks inksAt(vec2 position)
{
    float tone = toneAt(position);
    // Even the densest character covers less than half of its cell: the middle tones lean to the dense side.
    float glyph = floor(min(tone * (1.6 - 0.6 * tone), 0.9999) * 16.0);
    vec2 slope = vec2(toneAt(position + vec2(1.0, 0.0)) - toneAt(position - vec2(1.0, 0.0)),
                      toneAt(position + vec2(0.0, 1.0)) - toneAt(position - vec2(0.0, 1.0)));
    // Five characters of middling density, : ; - ~ =, are alike in tone but not in shape: what runs across
    // the picture gets the lying ones, what runs up and down the standing ones.
    float across = abs(slope.x);
    float down = abs(slope.y);
    bool middling = glyph > 2.5 && glyph < 7.5;
    float lying = tone < 0.25 ? 5.0 : 7.0;
    float standing = tone < 0.25 ? 3.0 : 4.0;
    glyph = middling && down > 2.0 * across + 0.02 ? lying : glyph;
    glyph = middling && across > 2.0 * down + 0.02 ? standing : glyph;
    // An edge is drawn along itself, in the ink of its light side.
    float steep = max(across, down);
    float upright = across > 2.4 * down ? glyphUpright : slope.x * slope.y > 0.0 ? glyphRising : glyphFalling;
    float level = slope.y > 0.0 ? glyphLow : glyphLevel;
    bool edge = steep > 0.24 && glyph > 0.5 && glyph < 11.5;
    glyph = edge ? (down > 2.4 * across ? level : upright) : glyph;
    // A character that the picture's border would cut is left out.
    vec2 end = (floor(position) + 1.0) * cellSize;
    bool whole = all(lessThanEqual(end, frameSize + 0.5));
    return glyphInks(edge ? min(tone + 0.4 * steep, 1.0) : tone, whole ? glyph : 0.0);
}
#else
Inks inksAt(vec2 position) { return inksOf(toneAt(position)); }
#endif
