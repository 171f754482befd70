// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The continuous ramp of a look, dark end on the left.

in_hoisted vec3 vInk[5]; // OKLab here
in vec2 vPosition;
out vec4 outColor;

void main()
{
    // The first and last texels hold the very ends, so that the sampler's edge texels are exact.
    float tone = saturate((vPosition.x - 0.5) / (rampLength - 1.0)) * (lookStopCount - 1.0);
    vec3 color = vInk[0];
    for (int i = 0; i < 4; ++i)
        color += (vInk[i + 1] - vInk[i]) * saturate(tone - float(i));
    outColor = vec4(saturate(srgbFromOklab(color)), 1.0);
}
