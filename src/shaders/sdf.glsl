// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Signed distances and the shaping that goes with them.

/// Distance to the segment from a to b.
float segmentDistance(vec2 p, vec2 a, vec2 b)
{
    vec2 d = b - a;
    return length(p - a - d * saturate(dot(p - a, d) / max(dot(d, d), 1e-6)));
}

/// Signed distance to a box of half size `half`, its corners rounded by `radius`.
float roundBoxDistance(vec2 p, vec2 halfSize, float radius)
{
    vec2 d = abs(p) - halfSize + radius;
    return length(max(d, 0.0)) + min(max(d.x, d.y), 0.0) - radius;
}

/// The smaller of two distances, blended over `k`. Formula: Quilez, polynomial smooth minimum.
float smoothMin(float a, float b, float k)
{
    float h = max(k - abs(a - b), 0.0) / k;
    return min(a, b) - 0.25 * h * h * k;
}

/// 1 inside a shape of signed distance d, 0 outside, anti-aliased over `width`.
float inside(float d, float width) { return saturate(0.5 - d / max(width, 1e-5)); }

/// 1 on a line of half width `halfWidth` whose distance is d, anti-aliased over `width`.
float stroke(float d, float halfWidth, float width) { return inside(abs(d) - halfWidth, width); }

/// A bell of height 1 and width `width`.
float bell(float x, float width)
{
    x /= width;
    return exp(-x * x);
}

/// Squeezes 0 to infinity into 0 to 1, so that lights can be added without clipping.
float expose(float x) { return 1.0 - exp(-x); }
