// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The inks of a look: tones that stand evenly on its ramp, first stop on the left. What is to the right of
// the last stop is never looked at.

out vec4 outColor;

void main()
{
    float place = floor(position().x) * (lookStopCount - 1.0) / (lookLevels - 1.0);
    float stop = floor(min(place, 4.0) + 0.5);
    // On a stop it is the stop itself, to the last bit.
    outColor = vec4(abs(place - stop) < 0.01 ? stopColor(int(stop)) : rampColor(place), 1.0);
}
