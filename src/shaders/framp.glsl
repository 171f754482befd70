// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The continuous ramp of a look, first stop on the left.

in vec2 vPosition;
out vec4 outColor;

void main()
{
    // The first and last texels hold the very ends, so that the sampler's edge texels are exact.
    float tone = saturate((vPosition.x - 0.5) / (rampLength - 1.0));
    outColor = vec4(rampColor(tone * (lookStopCount - 1.0)), 1.0);
}
