// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Two neighbouring inks of the palette and the share of the upper one: what a tone becomes before a dither
// decides between them.

const float glyphCount = 32.0; // characters in the atlas

struct Inks {
    vec3 lower;
    vec3 upper;
    float share;
};

/// The upper ink where its share exceeds the threshold, which is above 0 and below 1.
vec3 pick(Inks inks, float threshold) { return inks.share > threshold ? inks.upper : inks.lower; }
