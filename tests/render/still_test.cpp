// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/drawing_test.h"

#include <algorithm>

namespace tessel {
namespace {

using Still = DrawingTest;

/// How many pixels differ in two pictures of one size.
std::size_t differing(const Picture& one, const Picture& other)
{
    std::size_t count = 0;
    for (std::size_t i = 0; i < one.pixelCount(); ++i)
        count += one.pixels[i] != other.pixels[i] ? 1U : 0U;
    return count;
}

TEST_F(Still, RefusesSizesTheGpuCannotDraw)
{
    const Look look;
    for (const auto& [width, height] :
         {std::pair{0, 100}, {100, 0}, {-5, 100}, {1'000'000, 100}, {100, 1'000'000}})
        EXPECT_FALSE(
            renderStill(encoder, {.previous = look, .current = look, .width = width, .height = height}))
            << width << " x " << height;
}

TEST_F(Still, DrawsTheSmallestAndTheThinnestPictures)
{
    Look look;
    for (const Dither dither : allDithers()) {
        look.dither = dither;
        EXPECT_EQ(draw(look, 1, 1).pixelCount(), 1U);
        EXPECT_EQ(draw(look, 3000, 1).pixelCount(), 3000U);
    }
}

TEST_F(Still, HasItsFirstRowOnTop)
{
    QImage photo(16, 16, QImage::Format_Grayscale8);
    photo.fill(0);
    for (int y = 0; y < 8; ++y)
        std::fill_n(photo.scanLine(y), 16, uchar{255});
    Look look = photoLook(photo);
    look.custom = {0x000000, 0xFFFFFF};
    for (const Dither dither : allDithers()) {
        look.dither = dither;
        const Picture picture = draw(look, 240, 240);
        const auto lit = [&](int from) {
            return std::count_if(picture.row(from).data(), picture.row(from + 100).data(),
                                 [](std::uint32_t pixel) { return (pixel & 0xFFU) > 128; });
        };
        EXPECT_GT(lit(0), 4000) << title(dither);
        EXPECT_LT(lit(140), 1000) << title(dither);
    }
}

TEST_F(Still, IsRightFromTheFirstFrame)
{
    Look look;
    look.pattern = Pattern::silk; // two pixels a cell when it is smooth
    for (const Dither dither : allDithers()) {
        look.dither = dither;
        FrameEncoder fresh;
        const Frame frame{.previous = look, .current = look, .width = 320, .height = 180};
        const auto first = renderStill(fresh, frame);
        const auto second = renderStill(fresh, frame);
        EXPECT_TRUE(
            std::equal(first->pixels.get(), first->pixels.get() + first->pixelCount(), second->pixels.get()))
            << title(dither);
    }
}

TEST_F(Still, IsTurnedOverForWindows)
{
    const Look look;
    const GlTexture texture = makeTexture(colorFormat, 200, 150);
    const GlFramebuffer framebuffer = makeFramebuffer(texture);
    encoder.encode({.previous = look, .current = look, .width = 200, .height = 150},
                   {framebuffer.name(), RowOrder::bottomFirst});
    Picture turned(200, 150);
    readColors(framebuffer, 200, 150, turned.pixels.get());
    const Picture upright = draw(look, 200, 150);
    for (int y = 0; y < 150; ++y)
        EXPECT_TRUE(std::ranges::equal(turned.row(149 - y), upright.row(y))) << y;
}

TEST_F(Still, SlicesGiveTheWholePicture)
{
    Look from = rampLook();
    Look to;
    to.pattern = Pattern::silk;
    for (const Dither dither : allDithers()) {
        from.dither = to.dither = dither;
        const Frame frame{.previous = from, .current = to, .width = 333, .height = 250, .mix = 0.5F};
        const auto whole = renderStill(encoder, frame);
        StillDrawing drawing(frame, 20);
        int slices = 1;
        while (drawing.advance(encoder)) {
            ++slices;
            drawing.setSliceRows(20 * slices);
        }
        const auto sliced = drawing.take();
        EXPECT_GT(slices, 2);
        ASSERT_TRUE(whole && sliced);
        EXPECT_EQ(differing(*whole, *sliced), 0U) << title(dither);
        EXPECT_FALSE(drawing.take()) << "it is there once";
    }
}

TEST_F(Still, BatchesGiveOnePictureForEachLook)
{
    std::vector<Look> looks(3);
    looks[1].seed = 50;
    looks[2].dither = Dither::smooth;
    const auto pictures = renderStills(encoder, looks, 96, 64, 1.0, Edge::left);
    ASSERT_EQ(pictures.size(), 3U);
    for (std::size_t i = 0; i < looks.size(); ++i) {
        const Picture alone = draw(looks[i], 96, 64, 1.0);
        ASSERT_TRUE(pictures[i]);
        EXPECT_TRUE(std::equal(alone.pixels.get(), alone.pixels.get() + alone.pixelCount(),
                               pictures[i]->pixels.get()));
    }
    for (const auto& picture : renderStills(encoder, looks, 1'000'000, 64, 1.0, Edge::left))
        EXPECT_FALSE(picture);
}

} // namespace
} // namespace tessel
