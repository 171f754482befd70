// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// One pixel of the map of a screen: the number of its cell, and its threshold as the largest share in 255ths that does
// not reach it.

out vec4 outColor;

void main()
{
    vec3 cell = shade(position());
    outColor = vec4(cell, floor(pickedAbove * 255.0) / 255.0);
}
