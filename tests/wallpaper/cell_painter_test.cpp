// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/fake_desktop.h"
#include "wallpaper/cell_painter.h"

namespace tessel {
namespace {

class CellPainterTest : public DrawingTest
{
protected:
    explicit CellPainterTest()
    {
        record->screen = {QStringLiteral("ONE"), QRect(0, 0, 333, 250), 1.0};
        window = std::make_unique<MemoryWindow>(record);
    }

    static Frame frameOf(const Look& look, double time)
    {
        return {
            .previous = look, .current = look, .width = 333, .height = 250, .time = time, .reference = 400};
    }

    bool shows(const Frame& frame)
    {
        return countSame(record->image, *renderStill(encoder, frame)) == 333 * 250;
    }

    std::shared_ptr<WindowRecord> record = std::make_shared<WindowRecord>();
    std::unique_ptr<MemoryWindow> window;
    CellPainter painter;
};

TEST_F(CellPainterTest, ShowsWhatTheRendererDraws)
{
    for (const Dither dither : {Dither::posterize, Dither::bayer4, Dither::bayer8, Dither::noise}) {
        for (const float pixel : {2.0F, 8.0F, 31.0F, 3e9F}) {
            Look look;
            look.dither = dither;
            look.pixel = pixel;
            for (const double time : {0.0, 0.1, 0.2, 7.0}) {
                const Frame frame = frameOf(look, time);
                ASSERT_TRUE(CellPainter::canPaint(frame));
                painter.paint(encoder, frame, *window);
                EXPECT_TRUE(shows(frame)) << title(dither) << " " << pixel << " at " << time;
            }
        }
    }
}

TEST_F(CellPainterTest, TouchesOnlyWhatHasChanged)
{
    const Look look;
    const long all = 333L * 250;
    EXPECT_TRUE(painter.paint(encoder, frameOf(look, 1.0), *window));
    EXPECT_EQ(record->paintedPixels, all);
    EXPECT_FALSE(painter.paint(encoder, frameOf(look, 1.0), *window)) << "nothing has moved";
    EXPECT_EQ(record->paintedPixels, all);
    EXPECT_TRUE(painter.paint(encoder, frameOf(look, 1.02), *window));
    EXPECT_LT(record->paintedPixels, all + all / 10);

    record->image.fill(Qt::magenta);
    painter.invalidate();
    painter.paint(encoder, frameOf(look, 1.02), *window);
    EXPECT_TRUE(shows(frameOf(look, 1.02)));
}

TEST_F(CellPainterTest, LeavesTheRestToOpenGl)
{
    Look look;
    for (const Dither dither : allDithers()) {
        look.dither = dither;
        EXPECT_EQ(CellPainter::canPaint(frameOf(look, 0.0)),
                  shaders::kind(dither) == shaders::DitherKind::cell);
    }
    look.dither = Dither::bayer8;
    Frame fading = frameOf(look, 0.0);
    fading.mix = 0.5F;
    EXPECT_FALSE(CellPainter::canPaint(fading));
    look.pixel = 0.1F;
    EXPECT_FALSE(CellPainter::canPaint(frameOf(look, 0.0))) << "cells of one pixel";
}

} // namespace
} // namespace tessel
