// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "edge/handle_view.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

TEST(HandleView, HasARimAroundTheLookAndNothingBeyondAtEveryScale)
{
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        QImage look(QSize(28, 28) * scale, QImage::Format_RGB32);
        look.fill(Qt::magenta);
        const QImage handle = drawHandle(look, false, false, scale);
        ASSERT_EQ(handle.size(), QSize(36, 36) * scale);
        const int last = handle.width() - 1;
        const int middle = handle.width() / 2;
        EXPECT_EQ(handle.pixelColor(0, 0).alpha(), 0);
        EXPECT_EQ(handle.pixelColor(last, last).alpha(), 0);
        EXPECT_EQ(handle.pixelColor(middle, 0), QColor(0x0A, 0x08, 0x06)) << "the foot, at scale " << scale;
        EXPECT_EQ(handle.pixelColor(middle, middle), QColor(Qt::magenta));
        for (const int x : {0, last})
            EXPECT_EQ(handle.pixelColor(x, middle), QColor(0x0A, 0x08, 0x06)) << "at scale " << scale;
        const QColor lit = handle.pixelColor(handle.width() / 5, handle.width() / 5);
        EXPECT_GT(
            drawHandle(look, true, false, scale).pixelColor(handle.width() / 5, handle.width() / 5).red(),
            lit.red());
    }
}

TEST(HandleView, IsFilledByAPictureOfAFormerScale)
{
    for (const int side : {28, 56}) {
        QImage look(side, side, QImage::Format_RGB32);
        look.fill(Qt::magenta);
        const QImage handle = drawHandle(look, false, false, 1.5);
        for (const int place : {handle.width() / 2, handle.width() / 6 + 1, handle.width() * 5 / 6 - 1})
            EXPECT_EQ(handle.pixelColor(handle.width() / 2, place), QColor(Qt::magenta)) << place;
    }
}

} // namespace
} // namespace tessel
