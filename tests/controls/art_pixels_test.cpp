// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/art_pixels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace tessel::art {
namespace {

using testing::ElementsAre;

TEST(ArtPixels, CellsAreOfWholeDevicePixelsAtEveryScale)
{
    const auto widths = [](double scale) {
        const auto width = [scale](int cell) { return edge(cell + 1, scale) - edge(cell, scale); };
        return std::array{width(0), width(1), width(2), width(3)};
    };
    EXPECT_THAT(widths(1.0), ElementsAre(2, 2, 2, 2));
    EXPECT_THAT(widths(1.25), ElementsAre(3, 2, 3, 2));
    EXPECT_THAT(widths(1.5), ElementsAre(3, 3, 3, 3));
    EXPECT_THAT(widths(2.0), ElementsAre(4, 4, 4, 4));
}

TEST(ArtPixels, CornersAreTheDrawnOnes)
{
    EXPECT_THAT(cornerInsets(2), ElementsAre(1, 0));
    EXPECT_THAT(cornerInsets(4), ElementsAre(2, 1, 0, 0));
    EXPECT_THAT(cornerInsets(6), ElementsAre(4, 2, 1, 1, 0, 0));
    EXPECT_THAT(cornerInsets(12), ElementsAre(9, 6, 5, 4, 3, 2, 1, 1, 1, 0, 0, 0));
}

// A window's mask and what is drawn in it must be the same shape, and the same seen from every side.
TEST(ArtPixels, ShapesAreWholeAndSymmetric)
{
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        for (const int radius : {0, 2, 6, 12}) {
            const QSize size(static_cast<int>(61 * scale), static_cast<int>(77 * scale));
            const QRegion shape = steppedShape(size, radius, scale);
            EXPECT_EQ(shape.boundingRect(), QRect(QPoint(0, 0), size));
            QRegion turned;
            for (const QRect& rect : shape)
                turned += QRect(size.width() - rect.right() - 1, size.height() - rect.bottom() - 1,
                                rect.width(), rect.height());
            EXPECT_EQ(turned, shape) << radius << " at " << scale;
            EXPECT_EQ(shape.contains(QPoint(0, 0)), radius == 0);
        }
    }
    // As small as a point, a shape is still one.
    EXPECT_EQ(steppedShape(QSize(1, 1), 12, 1.0), QRegion(0, 0, 1, 1));
}

double shareOf(const QImage& image, QRect part, QRgb colour)
{
    int found = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            found += image.pixel(x, y) == colour ? 1 : 0;
    return static_cast<double>(found) / (part.width() * part.height());
}

TEST(ArtPixels, RampsMeanQuantity)
{
    const std::vector<QColor> colours = {Qt::black, Qt::red, Qt::white};
    const QImage even = ditheredRamp(colours, Ramp::Even, QSize(80, 8), 1.0);
    ASSERT_EQ(even.size(), QSize(160, 16));
    EXPECT_NEAR(shareOf(even, even.rect(), QColor(Qt::black).rgba()), 0.25, 0.02);
    EXPECT_NEAR(shareOf(even, even.rect(), QColor(Qt::red).rgba()), 0.5, 0.02);
    EXPECT_NEAR(shareOf(even, QRect(40, 0, 8, 16), QColor(Qt::red).rgba()), 0.55, 0.1);

    // A third of the width is each colour's own, and its middle nothing else's.
    const QImage blocks = ditheredRamp(colours, Ramp::Blocks, QSize(90, 8), 1.0);
    EXPECT_NEAR(shareOf(blocks, blocks.rect(), QColor(Qt::red).rgba()), 1.0 / 3, 0.02);
    EXPECT_EQ(shareOf(blocks, QRect(88, 0, 4, 16), QColor(Qt::red).rgba()), 1.0);
}

TEST(ArtPixels, FadesCoverTheirEnd)
{
    const QRgb black = QColor(Qt::black).rgba();
    const QImage top = ditheredFade(Qt::black, Fade::Top, QSize(16, 8), 1.25);
    ASSERT_EQ(top.size(), QSize(40, 20));
    EXPECT_GT(shareOf(top, QRect(0, 0, 40, 5), black), 0.7);
    EXPECT_LT(shareOf(top, QRect(0, 15, 40, 5), black), 0.3);
    const QImage bottom = ditheredFade(Qt::black, Fade::Bottom, QSize(16, 8), 1.25);
    EXPECT_LT(shareOf(bottom, QRect(0, 0, 40, 5), black), 0.3);
    EXPECT_GT(shareOf(bottom, QRect(0, 15, 40, 5), black), 0.7);
}

} // namespace
} // namespace tessel::art
