// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/drawing_test.h"

#include <cstdlib>

namespace tessel {
namespace {

using CrossFade = DrawingTest;

int channelOf(const Picture& picture, int x, int y)
{
    return static_cast<int>(picture.row(y)[static_cast<std::size_t>(x)] & 0xFFU);
}

TEST_F(CrossFade, BlendsThePicturesOfTheTwoLooks)
{
    Look from;
    from.dither = Dither::halftone;
    Look to;
    to.dither = Dither::lines;
    to.seed = 3;
    to.palette = 0;
    const Picture a = draw(from, 300, 200);
    const Picture b = draw(to, 300, 200);
    const auto mixed =
        renderStill(encoder, {.previous = from, .current = to, .width = 300, .height = 200, .mix = 0.25F});
    ASSERT_TRUE(mixed);
    for (int y = 0; y < 200; ++y)
        for (int x = 0; x < 300; ++x)
            ASSERT_NEAR(channelOf(*mixed, x, y), 0.75 * channelOf(a, x, y) + 0.25 * channelOf(b, x, y), 1.5);
}

TEST_F(CrossFade, ReachesFromOneSideOfTheHandleToTheOther)
{
    Look look;
    look.pattern = Pattern::dawn;
    const auto drawn = [&](Edge before, Edge after) {
        return renderStill(encoder, {.previous = look,
                                     .current = look,
                                     .width = 160,
                                     .height = 90,
                                     .mix = 0.5F,
                                     .edge = after,
                                     .previousEdge = before});
    };
    const Picture left = *drawn(Edge::left, Edge::left);
    const Picture right = *drawn(Edge::right, Edge::right);
    const Picture mixed = *drawn(Edge::left, Edge::right);
    ASSERT_FALSE(std::equal(left.pixels.get(), left.pixels.get() + left.pixelCount(), right.pixels.get()));
    for (int x = 0; x < 160; ++x)
        EXPECT_NEAR(channelOf(mixed, x, 60), 0.5 * channelOf(left, x, 60) + 0.5 * channelOf(right, x, 60),
                    1.5);
}

TEST_F(CrossFade, ShowsTwoPhotosOfDifferentShapes)
{
    QImage dark(64, 16, QImage::Format_Grayscale8);
    dark.fill(0);
    QImage light(16, 64, QImage::Format_Grayscale8);
    light.fill(255);
    Look from = photoLook(dark);
    Look to = photoLook(light);
    from.dither = to.dither = Dither::posterize;
    from.custom = to.custom = {0x000000, 0xFFFFFF};
    const auto mixed =
        renderStill(encoder, {.previous = from, .current = to, .width = 64, .height = 64, .mix = 0.5F});
    EXPECT_NEAR(channelOf(*mixed, 32, 32), 128, 2);
}

} // namespace
} // namespace tessel
