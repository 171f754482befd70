// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/cell_painter.h"
#include "wallpaper/painter_test.h"

namespace tessel {
namespace {

using CellPainterTest = PainterTest<CellPainter>;

TEST_F(CellPainterTest, ShowsWhatTheRendererDraws)
{
    Look look;
    for (const Dither dither : {Dither::posterize, Dither::bayer4, Dither::bayer8, Dither::noise}) {
        for (const float pixel : {2.0F, 8.0F, 31.0F, 3e9F}) {
            look.dither = dither;
            look.pixel = pixel;
            showsWhatTheRendererDraws(look);
        }
    }
}

TEST_F(CellPainterTest, TouchesOnlyWhatHasChanged)
{
    const Look look;
    EXPECT_TRUE(paint(look, 1.0));
    EXPECT_EQ(record->paintedPixels, all);
    EXPECT_FALSE(paint(look, 1.0)) << "nothing has moved";
    EXPECT_EQ(record->paintedPixels, all);
    EXPECT_TRUE(paint(look, 1.02));
    EXPECT_LT(record->paintedPixels, all + all / 10);

    record->image.fill(Qt::magenta);
    painter.invalidate();
    paint(look, 1.02);
    EXPECT_TRUE(shows(look, 1.02));
}

TEST_F(CellPainterTest, LeavesTheRestToOpenGl)
{
    paintsOnly(shaders::DitherKind::cell);
    Look look;
    look.dither = Dither::bayer8;
    look.pixel = 0.1F;
    EXPECT_FALSE(CellPainter::canPaint(frameOf(look, 0.0))) << "cells of one pixel";
}

} // namespace
} // namespace tessel
