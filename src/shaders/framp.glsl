// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The continuous ramp of a look, first stop on the left.

out vec4 outColor;

void main()
{
    // The first and last texels hold the very ends, so that the sampler's edge texels are exact.
    float tone = saturate((position().x - 0.5) / (rampLength - 1.0));
    outColor = vec4(rampColor(tone * (lookStopCount - 1.0)), 1.0);
}
