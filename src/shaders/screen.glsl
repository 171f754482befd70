// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Rotated dot screens: where in its dot a position lies, and the dot's centre.

struct Dot {
    vec2 centre; // in cells, like the position
    vec2 offset; // from the centre, -0.5 to 0.5 in each direction of the screen
};

/// \param turn cosine and sine of the screen's angle, \param pitch distance of two dots in cells
Dot dotAt(vec2 position, vec2 turn, float pitch)
{
    vec2 q = vec2(dot(position, turn), dot(position, vec2(-turn.y, turn.x))) / pitch;
    vec2 middle = floor(q) + 0.5;
    vec2 back = middle * pitch;
    return Dot(vec2(dot(back, vec2(turn.x, -turn.y)), dot(back, turn.yx)), q - middle);
}

/// The share of a unit square that lies within distance r of its centre.
float discShare(float r)
{
    float overlap = max(r * r - 0.25, 0.0);
    float root = sqrt(overlap);
    // Four circular segments cut off by the sides; their angle is atan(2 * root), here by its series.
    float angle = 2.0 * root * (1.0 - overlap * (1.25 - 1.6 * overlap));
    return r * r * (3.14159265 - 4.0 * angle) + 2.0 * root;
}
