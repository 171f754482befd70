// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The photo, fitted so that it covers the picture, its luminance as the field; a soft vignette without one.

uniform sampler2D uPhoto;

#define photoSize (uSlot == 0 ? vec2(uFrame[9], uFrame[10]) : vec2(uFrame[6], uFrame[7]))
#define photoPresent ((uSlot == 0 ? uFrame[11] : uFrame[8]) > 0.5)

#define kFit k[0].xy
#define kPhases k[1]

void prepare(inout vec4 k[8])
{
    // How much of the photo the picture shows in each direction: all of one, a part of the other.
    float fit = (frameSize.x / frameSize.y) / (photoSize.x / photoSize.y);
    kFit = fit > 1.0 ? vec2(1.0, 1.0 / fit) : vec2(fit, 1.0);
    kPhases = vec4(loopAngle(0.21), loopAngle(0.17), loopAngle(0.13), loopAngle(0.11)) + tau * seedRandom(0);
}

float pattern(vec2 p, vec4 k[8])
{
    if (!photoPresent)
        return 0.85 - 0.6 * smoothstep(0.0, 1.35, length(p / halfExtent()));
    vec2 ripple = sin(p.yx * 3.1 + kPhases.xy) + 0.6 * sin(p.xy * 5.3 + kPhases.zw);
    vec2 place = (p + lookWarp * 0.018 * ripple) / (halfExtent() * lookScale);
    return texture(uPhoto, 0.5 + 0.5 * place * kFit * vec2(1.0, -1.0)).r;
}
