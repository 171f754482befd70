// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/painter_test.h"
#include "wallpaper/screen_painter.h"

namespace tessel {
namespace {

using ScreenPainterTest = PainterTest<ScreenPainter>;

TEST_F(ScreenPainterTest, ShowsWhatTheRendererDraws)
{
    Look look;
    look.seed = 4;
    for (const Dither dither :
         {Dither::halftone, Dither::lines, Dither::diamond, Dither::benday, Dither::ascii}) {
        for (const float pixel : {2.0F, 7.0F, 12.0F, 31.0F}) {
            look.dither = dither;
            look.pixel = pixel;
            look.levels = pixel > 10 ? 2 : 5;
            showsWhatTheRendererDraws(look);
        }
    }
}

TEST_F(ScreenPainterTest, TouchesOnlyWhatHasChanged)
{
    Look look;
    look.dither = Dither::halftone;
    EXPECT_TRUE(paint(look, 1.0));
    EXPECT_EQ(record->paintedPixels, all);
    EXPECT_FALSE(paint(look, 1.0)) << "nothing has moved";
    EXPECT_EQ(record->paintedPixels, all);

    // Somebody else has drawn there.
    std::fill_n(window->pixels(), all, 0xFFFF00FFU);
    painter.invalidate();
    paint(look, 1.0);
    EXPECT_TRUE(shows(look, 1.0));
}

TEST_F(ScreenPainterTest, LeavesTheRestToOpenGl)
{
    paintsOnly(shaders::DitherKind::screen);
    Look look;
    look.dither = Dither::lines;
    look.pixel = 0.1F;
    EXPECT_FALSE(ScreenPainter::canPaint(frameOf(look, 0.0))) << "cells of one pixel";
}

} // namespace
} // namespace tessel
