// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The ramp of a palette, from its first stop to its last.

in_hoisted vec3 vStop[5]; // in OKLab

/// \param place 0 at the first stop, 1 at the second, and so on
vec3 rampColor(float place)
{
    vec3 color = vStop[0];
    for (int i = 0; i < 4; ++i)
        color += (vStop[i + 1] - vStop[i]) * saturate(place - float(i));
    return saturate(srgbFromOklab(color));
}
