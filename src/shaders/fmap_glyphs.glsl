// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// One pixel of the map of characters: a bit for each of them that has ink there, the first one's the lowest of red.

out vec4 outColor;

void main()
{
    vec4 bytes = vec4(0.0);
    for (int glyph = 0; glyph < int(glyphCount); ++glyph) {
        mapShare = (float(glyph) + 0.5) / glyphCount;
        bytes[glyph / 8] += shade(position()).r * exp2(float(glyph % 8));
    }
    outColor = bytes / 255.0;
}
