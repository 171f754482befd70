// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/glyph_atlas.h"
#include "support/drawing_test.h"

namespace tessel {
namespace {

class GlyphAtlas : public DrawingTest
{
protected:
    QImage atlas = drawGlyphAtlas();

    [[nodiscard]] int inkOf(int glyph) const
    {
        int ink = 0;
        for (int y = 0; y < glyphCellSize; ++y)
            for (int x = 0; x < glyphCellSize; ++x)
                ink += atlas.constScanLine(y)[glyph * glyphCellSize + x];
        return ink;
    }
};

TEST_F(GlyphAtlas, IsOneRowOfCellsThatBeginsBlankAndGrowsDenser)
{
    EXPECT_EQ(atlas.size(), QSize(1536, 48));
    EXPECT_EQ(inkOf(0), 0);
    for (int glyph = 1; glyph < glyphCount; ++glyph)
        EXPECT_GT(inkOf(glyph), 255 * 20) << atlasGlyphs.at(static_cast<std::size_t>(glyph));
    EXPECT_LT(inkOf(1), inkOf(7));
    EXPECT_LT(inkOf(7), inkOf(15));
}

TEST_F(GlyphAtlas, KeepsInkAwayFromTheCellBorders)
{
    for (int glyph = 0; glyph < glyphCount; ++glyph) {
        for (int i = 0; i < glyphCellSize; ++i) {
            const int left = glyph * glyphCellSize;
            EXPECT_EQ(atlas.constScanLine(i)[left], 0);
            EXPECT_EQ(atlas.constScanLine(i)[left + glyphCellSize - 1], 0);
            EXPECT_EQ(atlas.constScanLine(0)[left + i], 0);
            EXPECT_EQ(atlas.constScanLine(glyphCellSize - 1)[left + i], 0);
        }
    }
}

} // namespace
} // namespace tessel
