// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The tone of a cell: the pattern's field, shaped by the sliders. Needs a pattern.

in_hoisted vec4 vHoisted[8];

/// Inverted, with its contrast and vignette: -1.5 to 2.5.
float plainTone(float field, vec2 screen)
{
    float tone = lookInvert ? 1.0 - field : field;
    tone = (tone - 0.5) * lookContrast + 0.5;
    float corner = 0.5 * dot(screen, screen);
    return tone * (1.0 - lookVignette * corner * (0.4 + 0.6 * corner));
}

/// With its grain, and its place on the ramp.
float shapedTone(float tone, ivec2 cell)
{
    vec2 grain = unit2(hashBits(cell + 4096));
    tone = saturate(tone + 0.6 * lookGrain * (grain.x - grain.y));
    return 1.0 - abs(1.0 - mod(tone + lookOffset, 2.0));
}

float plainToneAt(vec2 cell)
{
    vec2 screen = (cell + 0.5) * cellSize / frameSize * 2.0 - 1.0;
    screen.y = -screen.y;
    vec2 p = screen * halfExtent();
#ifdef DIRECTIONAL
    p.x = handleOnRight ? -p.x : p.x;
#endif
    return plainTone(saturate(pattern(p, vHoisted)), screen);
}

/// The tone at a position in cells from the top left corner.
float toneAt(vec2 position)
{
    vec2 cell = floor(position);
    return shapedTone(plainToneAt(cell), ivec2(cell));
}
