// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// One pixel of the picture.

out vec4 outColor;

void main() { outColor = vec4(shade(position()), 1.0); }
