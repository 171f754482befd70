// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/frame_pause.h"

#include <cmath>

namespace tessel {

int pauseBetweenFrames(int framesPerSecond, double refreshSeconds)
{
    if (refreshSeconds <= 0)
        return 0;
    // A rate that misses a whole number by a hair is that number.
    constexpr double hair = 0.01;
    const double pictures = std::ceil(1.0 / (framesPerSecond * refreshSeconds) - hair);
    return static_cast<int>(std::ceil((pictures - 1) * refreshSeconds * 1000));
}

} // namespace tessel
