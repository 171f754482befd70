// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/frame_pause.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace tessel {
namespace {

/// How many pictures of the monitor lie between two frames: the next is drawn after the pause, and shown with
/// the picture after that, of which it is told then.
int picturesBetween(int framesPerSecond, double refreshSeconds)
{
    const auto picture = static_cast<qint64>(std::ceil(1000 * refreshSeconds));
    const double pause = pauseBetweenFrames(framesPerSecond, refreshSeconds, picture) / 1000.0;
    return static_cast<int>(std::floor(pause / refreshSeconds)) + 1;
}

TEST(FramePause, IsAWholeNumberOfTheMonitorsPicturesAndNeverMoreThanWanted)
{
    for (const double perSecond : {48.0, 59.94, 60.0, 75.0, 119.88, 144.0, 165.0, 239.76}) {
        for (const int wanted : {4, 10, 12, 15, 20, 24, 30, 60}) {
            const int pictures = picturesBetween(wanted, 1 / perSecond);
            const double shown = perSecond / pictures;
            EXPECT_LE(shown, wanted * 1.01) << wanted << " of " << perSecond;
            EXPECT_TRUE(pictures == 1 || perSecond / (pictures - 1) > wanted)
                << wanted << " of " << perSecond << ": one picture sooner was early enough";
        }
    }
}

TEST(FramePause, IsNoShorterForACompositorThatAnswersAtOnce)
{
    for (const qint64 sinceDrawn : {0, 3, 15, 17, 40, 49, 70, 5000}) {
        const qint64 next = sinceDrawn + pauseBetweenFrames(20, 1 / 60.0, sinceDrawn);
        EXPECT_GE(next, 50) << sinceDrawn;
        EXPECT_LE(next, std::max<qint64>(50, sinceDrawn + 34)) << sinceDrawn;
    }
}

TEST(FramePause, NeedsNoPauseWhereTheMonitorIsSlowEnough)
{
    EXPECT_EQ(pauseBetweenFrames(60, 1 / 60.0, 17), 0);
    EXPECT_EQ(pauseBetweenFrames(60, 1 / 59.94, 17), 0);
    EXPECT_EQ(pauseBetweenFrames(30, 1 / 24.0, 42), 0);
    EXPECT_EQ(pauseBetweenFrames(20, 0, 0), 0) << "of an output that is gone";
}

} // namespace
} // namespace tessel
