// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/status_icon.h"

#include <QPixmap>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace tessel {
namespace {

constexpr std::string_view emptyRow = "........................";

IconMask emptyMask()
{
    IconMask mask;
    mask.fill(emptyRow);
    return mask;
}

int inkCount(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) == 255 ? 1 : 0;
    return count;
}

QRect inkBounds(const QImage& image)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) != 0)
                bounds |= QRect(x, y, 1, 1);
    }
    return bounds;
}

TEST(StatusIcon, FillsItsBitmapFromSideToSide)
{
    const QImage image = statusImage(bowlMask());
    EXPECT_EQ(image.size(), QSize(33, 30));
    EXPECT_EQ(inkBounds(image), QRect(0, 0, 33, 30));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            ASSERT_TRUE(pixel == 0 || pixel == qRgb(0, 0, 0)) << x << ", " << y;
        }
    }
}

TEST(StatusIcon, SnapsArtPixelsToOneAndTwoPixelsByTurns)
{
    IconMask mask = emptyMask();
    // The first three art pixels of the lowest line and of the one above.
    mask[21] = ".R.R....................";
    mask[20] = "..R.....................";
    QImage expected(33, 30, QImage::Format_ARGB32);
    expected.fill(Qt::transparent);
    expected.setPixel(0, 29, qRgb(0, 0, 0));
    expected.setPixel(3, 29, qRgb(0, 0, 0));
    for (const QPoint at : {QPoint(1, 27), QPoint(2, 27), QPoint(1, 28), QPoint(2, 28)})
        expected.setPixel(at, qRgb(0, 0, 0));
    EXPECT_EQ(statusImage(mask), expected);
}

TEST(StatusIcon, DrawsOnlyInkWithinTheDrawnArea)
{
    IconMask mask = emptyMask();
    mask.fill("CCCCCCCCCCCCCCCCCCCCCCCC");
    EXPECT_EQ(inkCount(statusImage(mask)), 0);
    // The outermost columns and rows only pad the mask.
    mask = emptyMask();
    for (std::string_view& row : mask)
        row = "R......................R";
    for (const std::size_t row : {0U, 1U, 22U, 23U})
        mask[row] = "RRRRRRRRRRRRRRRRRRRRRRRR";
    EXPECT_EQ(inkCount(statusImage(mask)), 0);
    EXPECT_EQ(inkBounds(panelImage(mask, 48, PanelTone::dark)), QRect());
}

TEST(StatusIcon, MasksHaveTwentyFourColumnsEach)
{
    for (const std::string_view row : bowlMask())
        EXPECT_EQ(row.size(), 24U);
}

TEST(StatusIcon, IsEnlargedByHalvesOfPixelsForPanels)
{
    const QImage small = panelImage(bowlMask(), 22, PanelTone::dark);
    const QImage large = panelImage(bowlMask(), 48, PanelTone::dark);
    EXPECT_EQ(large.copy(2, 2, 44, 44), small.scaled(44, 44));
    EXPECT_EQ(inkCount(large), 4 * inkCount(small));
    const QImage between = panelImage(bowlMask(), 33, PanelTone::light);
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 33; ++x)
            ASSERT_EQ(qAlpha(between.pixel(x, y + 2)), qAlpha(statusImage(bowlMask()).pixel(x, y)));
}

TEST(StatusIcon, KeepsItsWeightWhenMadeSmaller)
{
    const auto weight = [](int side) {
        const QImage image = panelImage(bowlMask(), side, PanelTone::light);
        double sum = 0;
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x)
                sum += qAlpha(image.pixel(x, y)) / 255.0;
        return sum / (side * side);
    };
    const double whole = inkCount(panelImage(bowlMask(), 22, PanelTone::light)) / (22.0 * 22.0);
    for (const int side : {16, 18, 20})
        EXPECT_NEAR(weight(side), whole, 0.01) << side;
}

TEST(StatusIcon, HasARimOutsideOnly)
{
    IconMask mask = emptyMask();
    mask[10] = "..........RCCCR.........";
    const QImage image = panelImage(mask, 22, PanelTone::dark, Rim::contrasting);
    const QRgb rim = qRgba(0, 0, 0, 200);
    // Ink begins in column 9 of the drawn area, in its row 8, which is row 9 of the square.
    for (const QPoint outside : {QPoint(8, 9), QPoint(9, 8), QPoint(10, 10), QPoint(14, 10)})
        EXPECT_EQ(image.pixel(outside), rim) << outside.x() << ", " << outside.y();
    for (const int column : {10, 11, 12})
        EXPECT_EQ(image.pixel(column, 9), 0U) << column;
    EXPECT_EQ(inkBounds(panelImage(mask, 22, PanelTone::dark)), QRect(9, 9, 5, 1));
}

/// How many of an icon's pixels differ from what it lies on by as much as large text has to, 3 to 1.
int legibleCount(const QImage& icon, int ground)
{
    const auto luminance = [](double level) { return std::pow(level / 255, 2.2) + 0.05; };
    int count = 0;
    for (int y = 0; y < icon.height(); ++y) {
        for (int x = 0; x < icon.width(); ++x) {
            const QRgb pixel = icon.pixel(x, y);
            const double seen = ground + (qGray(pixel) - ground) * qAlpha(pixel) / 255.0;
            const double contrast = luminance(seen) / luminance(ground);
            count += std::max(contrast, 1 / contrast) >= 3 ? 1 : 0;
        }
    }
    return count;
}

TEST(StatusIcon, IsLegibleOnWhatItWasNotMadeFor)
{
    for (const int side : {16, 18, 22, 24, 32}) {
        const int least = side * side / 8;
        EXPECT_GT(legibleCount(panelImage(bowlMask(), side, PanelTone::dark, Rim::contrasting), 255), least)
            << side;
        EXPECT_GT(legibleCount(panelImage(bowlMask(), side, PanelTone::light, Rim::contrasting), 20), least)
            << side;
    }
}

TEST(StatusIcon, OffersExactSizesInBothTonesWithAndWithoutAName)
{
    for (const auto& [tone, name] : {std::pair(PanelTone::light, QString()),
                                     std::pair(PanelTone::dark, QStringLiteral("bowl-symbolic"))}) {
        const QIcon icon = statusIcon(tone, name);
        EXPECT_EQ(icon.name(), name);
        for (const int side : {16, 18, 20, 22, 24, 32, 33, 44}) {
            EXPECT_EQ(icon.pixmap(side).toImage().convertToFormat(QImage::Format_ARGB32),
                      panelImage(bowlMask(), side, tone, Rim::contrasting))
                << side;
        }
    }
}

TEST(StatusIcon, TakesTheColoursOfWindowsForThoseOfPanelsUnlessItKnowsMore)
{
    EXPECT_EQ(panelTone({}, Qt::white), PanelTone::light);
    EXPECT_EQ(panelTone({}, QColor(40, 40, 40)), PanelTone::dark);
    EXPECT_EQ(panelTone(true, Qt::white), PanelTone::dark);
    EXPECT_EQ(panelTone(false, QColor(40, 40, 40)), PanelTone::light);
}

} // namespace
} // namespace tessel
