// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The inks at a position, read from the ink textures; the share travels in their alpha.

uniform sampler2D uLower;
uniform sampler2D uUpper;
uniform vec2 uPerCell; // one cell, in texture coordinates

#ifdef GLYPH_INKS
in_hoisted vec3 vGround;

Inks inksAt(vec2 position)
{
    vec4 ink = texture(uUpper, position * uPerCell);
    return Inks(vGround, ink.rgb, ink.a);
}
#else
Inks inksAt(vec2 position)
{
    vec2 place = position * uPerCell;
    vec4 lower = texture(uLower, place);
    return Inks(lower.rgb, texture(uUpper, place).rgb, lower.a);
}
#endif
