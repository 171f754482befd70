// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Comic dots: flat tones, and between two of them one size of generous dots on a staggered screen, which is closer where
// cells are coarse, or there would be more dot than picture.

vec3 shade(vec2 position)
{
    Dot d = dotAt(position + 0.3, vec2(0.70710678, 0.70710678), bendayPitch());
    return pick(inksAt(d.centre), discShare(length(d.offset)) < 0.5 ? 0.198 : 0.802);
}
