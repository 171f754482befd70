// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/geometry.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

Look lookWith(Dither dither, float pixel, Pattern pattern = Pattern::flow)
{
    Look look;
    look.pattern = pattern;
    look.dither = dither;
    look.pixel = pixel;
    return look;
}

TEST(CellSize, SmoothLooksIgnoreThePixelAndSplitAfterWeave)
{
    EXPECT_EQ(cellSize(lookWith(Dither::smooth, 40, Pattern::weave), 1920, 1080, 1512), 1.0F);
    EXPECT_EQ(cellSize(lookWith(Dither::smooth, 40, Pattern::silk), 1920, 1080, 1512), 2.0F);
}

TEST(CellSize, MeasuresThePixelOnTheLongSide)
{
    EXPECT_EQ(cellSize(lookWith(Dither::bayer8, 8), 1920, 1080, 1512), 10.0F); // 10.16
    EXPECT_EQ(cellSize(lookWith(Dither::bayer8, 8), 1080, 1920, 1512), 10.0F);
    EXPECT_EQ(cellSize(lookWith(Dither::bayer8, 8), 3024, 1964, 1512), 16.0F);
    EXPECT_EQ(cellSize(lookWith(Dither::bayer8, 5), 756, 400, 1512), 3.0F); // 2.5 is rounded away from zero
    EXPECT_EQ(cellSize(lookWith(Dither::bayer8, 8), 192, 108, 1512), 1.0F); // 1.02
    EXPECT_EQ(cellSize(lookWith(Dither::bayer8, 8), 192, 108, 520), 3.0F);  // 2.95
}

TEST(CellSize, IsNeverBelowOnePixel)
{
    EXPECT_EQ(cellSize(lookWith(Dither::bayer8, 0.01F), 1920, 1080, 1512), 1.0F);
    EXPECT_EQ(cellSize(lookWith(Dither::bayer8, -8), 1920, 1080, 1512), 1.0F);
}

TEST(CellSize, KeepsCharactersReadable)
{
    EXPECT_EQ(cellSize(lookWith(Dither::ascii, 1), 3024, 1964, 1512), 18.0F);
    EXPECT_EQ(cellSize(lookWith(Dither::ascii, 8), 3024, 1964, 1512), 26.0F); // 16 times 1.6 is 25.6
}

TEST(FieldSize, CoversTheTargetWithACutLastColumn)
{
    EXPECT_EQ(fieldSize(1920, 1080, 10), (GridSize{192, 108}));
    EXPECT_EQ(fieldSize(1921, 1079, 10), (GridSize{193, 108}));
}

TEST(EditorReference, ShowsCellsAtTheSizeOfTheDesktop)
{
    EXPECT_FLOAT_EQ(editorReference(756, 1512, 2), 378.0F);
    EXPECT_FLOAT_EQ(editorReference(9000, 1512, 2), 1512.0F) << "a preview is never coarser than the desktop";
    EXPECT_FLOAT_EQ(editorReference(756, 0, 2), 1512.0F);
    EXPECT_FLOAT_EQ(editorReference(0, 1512, 2), 1512.0F);
}

} // namespace
} // namespace tessel
