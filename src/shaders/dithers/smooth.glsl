// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The continuous ramp, its stops blended in OKLab, with half a bit of ordered noise against the
// banding of 8-bit channels.

uniform sampler2D uRamp;

vec3 shade(vec2 position)
{
    vec3 color = texture(uRamp, vec2(toneAt(position), 0.5)).rgb;
    return color + (bayerThreshold(ivec2(gl_FragCoord.xy), 2) - 0.5) * (1.0 / 255.0);
}
