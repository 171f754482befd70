// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Round dots on a screen turned by 15 degrees. Every dot takes its tone from its own centre, so that it is
// round, and grows until its neighbours merge into the next ink.

vec3 shade(vec2 position)
{
    Dot d = dotAt(position, vec2(0.96592583, 0.25881905), 1.25);
    return pick(inksAt(d.centre), discShare(length(d.offset)));
}
