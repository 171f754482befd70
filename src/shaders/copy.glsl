// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Cells that have one colour each, enlarged to the target; the sampler decides whether they blend.

uniform sampler2D uLower;
uniform vec2 uPerCell; // one cell, in texture coordinates

vec3 shade(vec2 position) { return texture(uLower, position * uPerCell).rgb; }
