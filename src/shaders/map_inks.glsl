// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// In the place of ink_pair and inks_fetch, for the map of a screen: which cell a pixel takes its inks from, and above
// which share of the upper one it takes that.

uniform sampler2D uLower; // the number of each cell as a colour
uniform vec2 uPerCell; // one cell, in texture coordinates

struct Inks {
    vec3 cell;
};

Inks inksAt(vec2 position) { return Inks(texture(uLower, position * uPerCell).rgb); }

float pickedAbove;

vec3 pick(Inks inks, float threshold)
{
    pickedAbove = threshold;
    return inks.cell;
}
