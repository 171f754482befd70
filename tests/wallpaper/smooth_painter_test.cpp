// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/painter_test.h"
#include "wallpaper/smooth_painter.h"

#include <vector>

namespace tessel {
namespace {

class SmoothPainterTest : public PainterTest<SmoothPainter>
{
protected:
    SmoothPainterTest() { look.dither = Dither::smooth; }

    /// All pixels but so many in a thousand are within so many levels.
    void isWithin(int levels, std::size_t others, double time)
    {
        const std::vector<int> sorted = differences(frameOf(look, time));
        EXPECT_LE(sorted[(sorted.size() - 1) * (1000 - others) / 1000], levels)
            << title(look.pattern) << " at " << time;
    }

    Look look;
};

TEST_F(SmoothPainterTest, ShowsWhatTheRendererDrawsButForWhatNobodySees)
{
    for (const Pattern pattern : allPatterns()) {
        const auto place = static_cast<int>(pattern);
        look.pattern = pattern;
        look.seed = static_cast<float>(place);
        look.grain = place % 2 == 0 ? 0.0F : 0.3F;
        look.offset = place % 3 == 0 ? 0.0F : -0.6F;
        look.invert = place % 5 == 0;
        look.contrast = place % 7 == 0 ? 3.0F : 1.0F;
        paint(look, 2.0);
        isWithin(3, 0, 2.0);
        // Tiles are sampled more coarsely by now, and not all of them in each frame.
        double time = 2.0;
        for (int frame = 0; frame < 30; ++frame)
            paint(look, time += 0.0175);
        isWithin(4, 10, time);
        // As after an hour of sleep.
        paint(look, time += 70.0);
        isWithin(4, 10, time);
    }
}

TEST_F(SmoothPainterTest, IsWhereItBelongsHoweverFastFramesCome)
{
    for (const Pattern pattern : {Pattern::flow, Pattern::ripple, Pattern::silk}) {
        look.pattern = pattern;
        double time = 2.0;
        const auto play = [&](int frames, double stride) {
            for (int frame = 0; frame < frames; ++frame)
                paint(look, time += stride);
            isWithin(5, 10, time);
        };
        play(40, 0.005);
        play(1, 0.04);
        play(6, 0.04);
        play(1, 0.0025);
        play(6, 0.0025);
        play(1, 0.0);
        play(20, -0.005);
    }
}

TEST_F(SmoothPainterTest, TouchesOnlyWhatHasChanged)
{
    EXPECT_TRUE(paint(look, 1.0));
    EXPECT_EQ(record->paintedPixels, all);
    EXPECT_FALSE(paint(look, 1.0)) << "nothing has moved";
    double time = 1.0;
    for (int frame = 0; frame < 20; ++frame)
        paint(look, time += 0.00001);
    const long before = record->paintedPixels;
    paint(look, time += 0.00001);
    EXPECT_LT(record->paintedPixels, before + all / 2);

    // Somebody else has drawn there.
    std::fill_n(window->pixels(), all, 0xFFFF00FFU);
    painter.invalidate();
    paint(look, time);
    isWithin(3, 10, time);
}

TEST_F(SmoothPainterTest, BeginsAnewWithAnotherLook)
{
    paint(look, 1.0);
    look.custom = {0xFF0000, 0x00FF00};
    look.invert = true;
    paint(look, 1.0);
    isWithin(3, 10, 1.0);
}

TEST_F(SmoothPainterTest, LeavesTheRestToOpenGl)
{
    paintsOnly(shaders::DitherKind::continuous);
}

} // namespace
} // namespace tessel
