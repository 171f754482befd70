// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// One cell of the ink textures.

layout(location = 0) out vec4 outLower;
layout(location = 1) out vec4 outUpper;

void main()
{
    Inks inks = inksAt(position());
    outLower = vec4(inks.lower, inks.share);
    outUpper = vec4(inks.upper, inks.share);
}
