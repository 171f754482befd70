// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "edge/edge_layout.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

TEST(EdgeLayout, StandsInTheMiddleOfTheWorkAreaAtEitherEdge)
{
    const QRect workArea(100, 30, 1440, 870);
    const EdgeLayout left{workArea, Edge::left};
    EXPECT_EQ(left.panelHeight(), 720);
    EXPECT_EQ(left.panelFrame(), QRect(100, 85, 372, 760));
    EXPECT_EQ(left.contentFrame(Mode::handle), QRect(12, 362, 36, 36));
    EXPECT_EQ(left.contentFrame(Mode::quick), QRect(6, 356, 48, 240));
    EXPECT_EQ(left.contentFrame(Mode::open), QRect(12, 20, 312, 720));

    const EdgeLayout right{workArea, Edge::right};
    EXPECT_EQ(right.panelFrame(), QRect(1168, 85, 372, 760));
    EXPECT_EQ(right.contentFrame(Mode::handle), QRect(324, 362, 36, 36));
    EXPECT_EQ(right.contentFrame(Mode::quick), QRect(318, 356, 48, 240));
    EXPECT_EQ(right.contentFrame(Mode::open), QRect(48, 20, 312, 720));
}

TEST(EdgeLayout, TheEditorGetsShorterWithTheScreen)
{
    EXPECT_EQ((EdgeLayout{QRect(0, 0, 1024, 760), Edge::left}.panelHeight()), 720);
    EXPECT_EQ((EdgeLayout{QRect(0, 0, 1024, 759), Edge::left}.panelHeight()), 719);
    EXPECT_EQ((EdgeLayout{QRect(0, 0, 800, 500), Edge::left}.contentFrame(Mode::open)),
              QRect(12, 20, 312, 460));
    EXPECT_EQ((EdgeLayout{QRect(0, 0, 10, 10), Edge::left}.panelHeight()), 0);
}

TEST(EdgeLayout, RowsBeginBelowTheHandle)
{
    const EdgeLayout layout{QRect(0, 0, 1440, 900), Edge::left};
    const int firstRow = layout.contentFrame(Mode::handle).bottom() + 11;
    EXPECT_EQ(layout.quickRow(firstRow - 1), std::nullopt);
    EXPECT_EQ(layout.quickRow(firstRow), 0);
    EXPECT_EQ(layout.quickRow(firstRow + 35), 0);
    EXPECT_EQ(layout.quickRow(firstRow + 36), 1);
    EXPECT_EQ(layout.quickRow(firstRow + 179), 4);
    EXPECT_EQ(layout.quickRow(firstRow + 180), std::nullopt);
}

} // namespace
} // namespace tessel
