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

// From the tenth on two of the ramp's characters and others of as much ink are one another's like: where the others
// begin, and how many they are.
const float firstLike = 10.0;
const float likeFirst[3] = float[](20.0, 26.0, 28.0);
const float likeCount[3] = float[](6.0, 2.0, 4.0);

/// Slopes from here on are edges, whatever the inks on their sides are.
const float steepSlope = 0.12;

/// The tone about a position with less of its grain, and how it grows to the right and downwards, from cell to cell.
vec3 toneAbout(vec2 position, float tone)
{
#ifdef HAS_PATTERN
    // Cells of single pixels, which have no room for a character.
    return vec3(tone, 0.0, 0.0);
#else
    vec2 across = vec2(1.0, 0.0);
    float left = toneAt(position - across);
    float right = toneAt(position + across);
    float above = toneAt(position - across.yx);
    float below = toneAt(position + across.yx);
    float farLeft = toneAt(position - 2.0 * across);
    float farRight = toneAt(position + 2.0 * across);
    float farAbove = toneAt(position - 2.0 * across.yx);
    float farBelow = toneAt(position + 2.0 * across.yx);
    vec2 near = 0.5 * vec2(right - left, below - above);
    vec2 far = 0.2 * vec2(farRight - farLeft, farBelow - farAbove) + 0.2 * near;
    bool steep = max(abs(near.x), abs(near.y)) > steepSlope;
    return vec3(0.2 * (tone + left + right + above + below), steep ? near : far);
#endif
}

/// The character of a density, 0 to 16: those of about as much ink take turns, and no flat tone is a flat wall.
float characterOf(float density, float chance)
{
    float glyph = floor(clamp(density, 0.0, 15.99));
    int pair = int(max(0.5 * (glyph - firstLike), 0.0));
    float one = floor(chance * (2.0 + likeCount[pair]));
    float like = one < 2.0 ? firstLike + 2.0 * float(pair) + one : likeFirst[pair] + one - 2.0;
    return glyph < firstLike ? glyph : like;
}

Inks inksAt(vec2 position)
{
    float tone = toneAt(position);
    vec3 about = toneAbout(position, tone);
    vec2 slope = about.yz;
    float across = abs(slope.x);
    float down = abs(slope.y);
    float steep = max(across, down);
    // A place keeps its chances, so that nothing boils where the tone moves. Most characters are as dense as the tone
    // has them; some are sparser, the more where it is flat. Where they are too small to be read all that would be noise.
    vec2 chance = cellSize > 4.5 ? unit2(hashBits(ivec2(position) + 977)) : vec2(0.0);
    float density = inkDensity(tone) * 16.0;
    float sparser = chance.x * chance.x;
    density += saturate(0.4 * density) * (0.7 - mix(5.0, 1.5, saturate(12.0 * steep)) * sparser * sparser);
    float glyph = characterOf(density, chance.y);
    // Five characters of middling density, : ; - ~ =, are alike in tone but not in shape: what runs across
    // the picture gets the lying ones, what runs up and down the standing ones.
    bool middling = glyph > 2.5 && glyph < 7.5;
    float lying = tone < 0.25 ? 5.0 : 7.0;
    float standing = tone < 0.25 ? 3.0 : 4.0;
    glyph = middling && down > 2.0 * across + 0.01 ? lying : glyph;
    glyph = middling && across > 2.0 * down + 0.01 ? standing : glyph;
    // Where one ink meets the next the line between them is drawn along itself, in the ink of its light side; and so
    // is every steep edge.
    float place = inkPlace(about.x);
    float border = clamp(floor(place + 0.5), 1.0, vLevels - 1.0);
    float rise = inkPlace(about.x + 0.5 * steep) - inkPlace(about.x - 0.5 * steep);
    bool meets = abs(place - border) < 0.5 * rise && rise < 0.3 && steep > 0.006 + 0.12 * lookGrain;
    bool edge = steep > steepSlope && density > 0.5 && density < 12.0;
    float below = (border - place) * steep / (rise * slope.y); // where the line is, from the middle of the cell
    float upright = across > 2.4 * down ? glyphUpright : slope.x * slope.y > 0.0 ? glyphRising : glyphFalling;
    float level = (edge ? slope.y > 0.0 : below > 0.15) ? glyphLow : glyphLevel;
    glyph = edge || meets ? (down > 2.4 * across ? level : upright) : glyph;
    // A character that the picture's border would cut is left out.
    vec2 end = (floor(position) + 1.0) * cellSize;
    bool whole = all(lessThanEqual(end, frameSize + 0.5));
    float index = edge ? inkPlace(min(tone + 0.8 * steep, 1.0)) : meets ? border : inkPlace(tone);
    return glyphInks(floor(index), whole ? glyph : 0.0);
}
#else
Inks inksAt(vec2 position) { return inksOf(toneAt(position)); }
#endif
