// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// One triangle that covers the target. What depends on the look and the time alone is worked out here, three
// times a frame, and handed to every cell as constants.

#ifdef HAS_PATTERN
out_hoisted vec4 vHoisted[8];
#endif

#ifdef HAS_STOPS
out_hoisted vec3 vStop[5]; // in OKLab
#endif

#ifdef HAS_INKS
out_hoisted float vLevels;
#endif

#ifdef GLYPH_INKS
uniform sampler2D uSteps;
out_hoisted vec3 vGround;

/// The ground of characters: the darkest ink. Where all but some light is ground it is the next one, if that is
/// dark too, or the picture is a black one from afar.
vec3 groundInk()
{
    vec3 darkest = vec3(2.0);
    vec3 next = vec3(2.0);
    for (int i = 0; i < int(lookLevels); ++i) {
        vec3 ink = texelFetch(uSteps, ivec2(i, 0), 0).rgb;
        bool least = brightness(ink) < brightness(darkest);
        next = least ? darkest : brightness(ink) < brightness(next) ? ink : next;
        darkest = least ? ink : darkest;
    }
    bool allDark = lightOnDark[lookPattern] && !lookInvert;
    bool quiet = brightness(next) < 0.18 && max(max(next.r, next.g), next.b) < 0.41;
    return allDark && quiet && lookLevels > 3.5 ? next : darkest;
}
#endif

void main()
{
    vec2 corner = vec2(float((gl_VertexID << 1) & 2), float(gl_VertexID & 2));
    gl_Position = vec4(2.0 * corner - 1.0, 0.0, 1.0);
#ifdef HAS_PATTERN
    vec4 hoisted[8];
    for (int i = 0; i < 8; ++i)
        hoisted[i] = vec4(0.0);
    prepare(hoisted);
    vHoisted = hoisted;
#endif
#ifdef HAS_STOPS
    for (int i = 0; i < 5; ++i)
        vStop[i] = oklabFromSrgb(stopColor(i));
#endif
#ifdef HAS_INKS
    vLevels = lookLevels;
#endif
#ifdef GLYPH_INKS
    vGround = groundInk();
#endif
}
