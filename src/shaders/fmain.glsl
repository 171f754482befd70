// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// One pixel of the picture.

in vec2 vPosition;
out vec4 outColor;

void main() { outColor = vec4(shade(vPosition), 1.0); }
