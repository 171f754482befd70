// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/frame_pause.h"

#include <algorithm>
#include <cmath>

namespace tessel {

int pauseBetweenFrames(int framesPerSecond, double refreshSeconds, qint64 sinceDrawn)
{
    if (refreshSeconds <= 0)
        return 0;
    // A rate that misses a whole number by a hair is that number.
    constexpr double hair = 0.01;
    const double pictures = std::ceil(1.0 / (framesPerSecond * refreshSeconds) - hair);
    const double afterShown = (pictures - 1) * refreshSeconds * 1000;
    const double afterDrawn = pictures * refreshSeconds * 1000;
    return static_cast<int>(std::ceil(std::max(afterShown, afterDrawn - static_cast<double>(sinceDrawn))));
}

FramePause::FramePause()
{
    setSingleShot(true);
    setTimerType(Qt::PreciseTimer);
    m_sinceDrawn.start();
    callOnTimeout([this] { m_sinceDrawn.start(); });
}

void FramePause::startAfterShown(int framesPerSecond, double refreshSeconds)
{
    start(pauseBetweenFrames(framesPerSecond, refreshSeconds, m_sinceDrawn.elapsed()));
}

} // namespace tessel
