// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/status_icon.h"

#include <QPixmap>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

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
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) == 255 ? 1 : 0;
    }
    return count;
}

QRect inkBounds(const QImage& image)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) != 0)
                bounds |= QRect(x, y, 1, 1);
        }
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

TEST(StatusIcon, IsEnlargedByWholePixelsForPanels)
{
    const QImage small = panelImage(bowlMask(), 22, PanelTone::dark);
    const QImage large = panelImage(bowlMask(), 48, PanelTone::dark);
    EXPECT_EQ(large.size(), QSize(48, 48));
    EXPECT_EQ(inkCount(large), 4 * inkCount(small));
    const QRgb ink = qRgb(242, 242, 242);
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 22; ++x) {
            const bool isInk = small.pixel(x, y + 1) == ink;
            for (const QPoint part : {QPoint(0, 0), QPoint(1, 0), QPoint(0, 1), QPoint(1, 1)})
                ASSERT_EQ(large.pixel(QPoint(2 * x + 2, 2 * y + 4) + part) == ink, isInk) << x << ", " << y;
        }
    }
}

TEST(StatusIcon, OffersExactSizesInBothTones)
{
    for (const PanelTone tone : {PanelTone::light, PanelTone::dark}) {
        const QIcon icon = statusIcon(tone);
        for (const int side : {22, 24, 32, 48})
            EXPECT_TRUE(icon.availableSizes().contains(QSize(side, side))) << side;
        EXPECT_EQ(icon.pixmap(24).toImage().convertToFormat(QImage::Format_ARGB32),
                  panelImage(bowlMask(), 24, tone));
    }
}

TEST(StatusIcon, ExpectsThePanelOfTheDesktop)
{
    const QString gnome = QStringLiteral("ubuntu:GNOME");
    const QString plasma = QStringLiteral("KDE");
    EXPECT_EQ(panelTone(gnome, Qt::white), PanelTone::dark);
    EXPECT_EQ(panelTone(plasma, Qt::white), PanelTone::light);
    EXPECT_EQ(panelTone(plasma, QColor(40, 40, 40)), PanelTone::dark);
    EXPECT_EQ(panelTone(QString(), Qt::white), PanelTone::light);
}

} // namespace
} // namespace tessel
