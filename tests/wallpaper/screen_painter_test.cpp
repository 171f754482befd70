// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/fake_desktop.h"
#include "wallpaper/screen_painter.h"

namespace tessel {
namespace {

class ScreenPainterTest : public DrawingTest
{
protected:
    static constexpr int width = 333;
    static constexpr int height = 250;

    ScreenPainterTest()
    {
        record->screen = {QStringLiteral("ONE"), QRect(0, 0, width, height), 1.0};
        window = std::make_unique<MemoryWindow>(record);
    }

    static Frame frameOf(const Look& look, double time)
    {
        return {.previous = look,
                .current = look,
                .width = width,
                .height = height,
                .time = time,
                .reference = 400};
    }

    bool shows(const Frame& frame)
    {
        return countSame(record->image, *renderStill(encoder, frame)) == width * height;
    }

    std::shared_ptr<WindowRecord> record = std::make_shared<WindowRecord>();
    std::unique_ptr<MemoryWindow> window;
    ScreenPainter painter;
};

TEST_F(ScreenPainterTest, ShowsWhatTheRendererDraws)
{
    for (const Dither dither :
         {Dither::halftone, Dither::lines, Dither::diamond, Dither::benday, Dither::ascii}) {
        for (const float pixel : {2.0F, 7.0F, 12.0F, 31.0F}) {
            Look look;
            look.seed = 4;
            look.dither = dither;
            look.pixel = pixel;
            look.levels = pixel > 10 ? 2 : 5;
            for (const double time : {0.0, 0.1, 0.2, 7.0}) {
                const Frame frame = frameOf(look, time);
                ASSERT_TRUE(ScreenPainter::canPaint(frame));
                painter.paint(encoder, frame, *window);
                EXPECT_TRUE(shows(frame)) << title(dither) << " " << pixel << " at " << time;
            }
        }
    }
}

TEST_F(ScreenPainterTest, TouchesOnlyWhatHasChanged)
{
    Look look;
    look.dither = Dither::halftone;
    const long all = long{width} * height;
    EXPECT_TRUE(painter.paint(encoder, frameOf(look, 1.0), *window));
    EXPECT_EQ(record->paintedPixels, all);
    EXPECT_FALSE(painter.paint(encoder, frameOf(look, 1.0), *window)) << "nothing has moved";
    EXPECT_EQ(record->paintedPixels, all);

    // Somebody else has drawn there.
    std::fill_n(window->pixels(), all, 0xFFFF00FFU);
    painter.invalidate();
    painter.paint(encoder, frameOf(look, 1.0), *window);
    EXPECT_TRUE(shows(frameOf(look, 1.0)));
}

TEST_F(ScreenPainterTest, LeavesTheRestToOpenGl)
{
    Look look;
    for (const Dither dither : allDithers()) {
        look.dither = dither;
        EXPECT_EQ(ScreenPainter::canPaint(frameOf(look, 0.0)),
                  shaders::kind(dither) == shaders::DitherKind::screen);
    }
    look.dither = Dither::lines;
    Frame fading = frameOf(look, 0.0);
    fading.mix = 0.5F;
    EXPECT_FALSE(ScreenPainter::canPaint(fading));
    look.pixel = 0.1F;
    EXPECT_FALSE(ScreenPainter::canPaint(frameOf(look, 0.0))) << "cells of one pixel";
}

} // namespace
} // namespace tessel
