// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// One cell of the field: its tone.

in vec2 vPosition;
out float outTone;

void main()
{
    outTone = toneAt(vPosition);
    // Never so. A software renderer compiles a shader that cannot discard twice, once for whole blocks, and
    // the patterns take most of the time that a new look has to wait.
    if (outTone < -1.0)
        discard;
}
