// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/frame_painter.h"
#include "wallpaper/painter_test.h"

#include <utility>
#include <vector>

namespace tessel {
namespace {

class FramePainterTest : public PainterTest<FramePainter>
{
protected:
    Frame fade(float mix)
    {
        Frame frame{.previous = before,
                    .current = look,
                    .width = width,
                    .height = height,
                    .mix = mix,
                    .time = time += 0.02,
                    .reference = 400};
        frame.previousEdge = Edge::right;
        return frame;
    }

    void isPainted(const Frame& frame, int levels)
    {
        ASSERT_TRUE(painter.paint(encoder, frame, *window));
        const std::vector<int> off = differences(frame);
        EXPECT_LE(off[off.size() * 99 / 100], levels)
            << title(before.dither) << " to " << title(look.dither) << " at " << frame.mix;
    }

    Look before;
    Look look;
    double time = 1.0;
};

TEST_F(FramePainterTest, CrossFadesAsTheRendererDoes)
{
    look.pattern = Pattern::ripple;
    for (const Dither dither : allDithers()) {
        before = std::exchange(look, before);
        look.dither = dither;
        const bool isSmooth = look.dither == Dither::smooth || before.dither == Dither::smooth;
        for (const float mix : {0.0F, 0.3F, 0.75F, 1.0F, 1.0F})
            isPainted(fade(mix), isSmooth ? 5 : 1);
    }
}

TEST_F(FramePainterTest, GoesOnFromACrossFadeThatIsInterrupted)
{
    before.dither = Dither::halftone;
    isPainted(fade(0.4F), 1);
    before = look;
    look.dither = Dither::smooth;
    isPainted(fade(0.2F), 5);
    before = look;
    look.dither = Dither::noise;
    isPainted(fade(0.6F), 5);
    isPainted(fade(1.0F), 0);
    EXPECT_FALSE(record->hasPixels) << "rectangles need none";
}

TEST_F(FramePainterTest, LeavesToOpenGlWhatHasOneLookThatCannotBePainted)
{
    before.pixel = 0.0F;
    EXPECT_FALSE(painter.paint(encoder, fade(0.5F), *window));
    isPainted(fade(1.0F), 0);
    std::swap(before, look);
    EXPECT_FALSE(painter.paint(encoder, fade(0.5F), *window));
    EXPECT_FALSE(painter.paint(encoder, fade(1.0F), *window));
}

} // namespace
} // namespace tessel
