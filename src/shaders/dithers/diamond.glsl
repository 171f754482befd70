// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Diamonds on a screen turned by 45 degrees.

vec3 shade(vec2 position)
{
    Dot d = dotAt(position, vec2(0.70710678, 0.70710678), 1.41421356);
    vec2 side = abs(d.offset);
    float reach = side.x + side.y;
    float rest = 1.0 - reach;
    return pick(inksAt(d.centre), reach < 0.5 ? 2.0 * reach * reach : 1.0 - 2.0 * rest * rest);
}
