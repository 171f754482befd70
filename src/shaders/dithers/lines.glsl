// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Engraving: slightly turned lines whose thickness carries the tone.

vec3 shade(vec2 position)
{
    const vec2 normal = vec2(-0.08715574, 0.99619470);
    const float pitch = 1.0;
    float across = dot(position, normal) / pitch;
    float offset = fract(across) - 0.5;
    return pick(inksAt(position - normal * (offset * pitch)), abs(offset) * 1.996 + 0.002);
}
