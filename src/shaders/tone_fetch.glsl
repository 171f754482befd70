// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The tone of a cell, read from the field texture.

uniform sampler2D uField;
uniform vec2 uPerCell; // one cell, in texture coordinates

float toneAt(vec2 position) { return texture(uField, position * uPerCell).r; }
