// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The inks at a position, worked out from the tone there.

#ifdef GLYPH_INKS
Inks inksAt(vec2 position)
{
    float tone = toneAt(position);
    // Even the densest character covers less than half of its cell: the middle tones lean to the dense side.
    float glyph = floor(min(tone * (1.6 - 0.6 * tone), 0.9999) * 16.0);
    // Five characters of middling density, : ; - ~ =, are alike in tone but not in shape: what runs across
    // the picture gets the lying ones, what runs up and down the standing ones.
    float across = abs(toneAt(position + vec2(1.0, 0.0)) - toneAt(position - vec2(1.0, 0.0)));
    float down = abs(toneAt(position + vec2(0.0, 1.0)) - toneAt(position - vec2(0.0, 1.0)));
    bool middling = glyph > 2.5 && glyph < 7.5;
    float lying = tone < 0.25 ? 5.0 : 7.0;
    float standing = tone < 0.25 ? 3.0 : 4.0;
    glyph = middling && down > 2.0 * across + 0.02 ? lying : glyph;
    return glyphInks(tone, middling && across > 2.0 * down + 0.02 ? standing : glyph);
}
#else
Inks inksAt(vec2 position) { return inksOf(toneAt(position)); }
#endif
