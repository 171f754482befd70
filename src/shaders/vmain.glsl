// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// One triangle that covers the target. What depends on the look and the time alone is worked out here, three
// times a frame, and handed to every cell as constants.

uniform vec2 uExtent; // the target's size, in cells
uniform int uFlip;    // 1 when the target's first row is its bottom row

out vec2 vPosition; // in cells from the top left corner

#ifdef HAS_PLACE
uniform vec2 uPerCell; // one cell, in texture coordinates
out vec2 vPlace;       // the position in texture coordinates
#endif

#ifdef HAS_PATTERN
out_hoisted vec4 vHoisted[8];
#endif

#ifdef HAS_INKS
out_hoisted vec3 vInk[5];
#ifndef RAMP_INKS
out_hoisted vec2 vLevels;
#endif
#ifdef GLYPH_INKS
out_hoisted vec3 vGround;
#endif

vec3 stopColor(int stop) { return vec3(uLook[13 + 3 * stop], uLook[14 + 3 * stop], uLook[15 + 3 * stop]); }

#ifdef RAMP_INKS
void prepareInks()
{
    for (int i = 0; i < 5; ++i)
        vInk[i] = oklabFromSrgb(stopColor(i));
}
#else
void prepareInks()
{
    float count = lookStopCount;
    float levels = max(floor(lookLevels + 0.5), 2.0);
    float inks = min(levels, count);
    vLevels = vec2(inks, inks / levels);
    for (int i = 0; i < 5; ++i)
        vInk[i] = stopColor(int(floor(min(float(i), inks - 1.0) * (count - 1.0) / (inks - 1.0) + 0.5)));
#ifdef GLYPH_INKS
    const vec3 luminance = vec3(0.2126, 0.7152, 0.0722);
    vGround = vInk[0];
    for (int i = 1; i < 5; ++i)
        vGround = dot(vInk[i], luminance) < dot(vGround, luminance) ? vInk[i] : vGround;
#endif
}
#endif
#endif

void main()
{
    vec2 corner = vec2(float((gl_VertexID << 1) & 2), float(gl_VertexID & 2));
    gl_Position = vec4(2.0 * corner - 1.0, 0.0, 1.0);
    vPosition = vec2(corner.x, uFlip == 1 ? 1.0 - corner.y : corner.y) * uExtent;
#ifdef HAS_PLACE
    vPlace = vPosition * uPerCell;
#endif
#ifdef HAS_PATTERN
    vec4 hoisted[8];
    for (int i = 0; i < 8; ++i)
        hoisted[i] = vec4(0.0);
    prepare(hoisted);
    vHoisted = hoisted;
#endif
#ifdef HAS_INKS
    prepareInks();
#endif
}
