// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/look_json.h"
#include "render/uniforms.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstdint>

namespace tessel {
namespace {

using testing::ElementsAreArray;

TEST(LookBlock, FollowsTheLayoutAndLeavesTheSpeedOut)
{
    const Look look = decodeLook(
        R"({"pattern":35,"dither":9,"pixel":3,"levels":7,"scale":1.5,"warp":0.5,"speed":99,"contrast":2,)"
        R"("offset":0.25,"grain":0.1,"vignette":0.75,"invert":true,"seed":42,"custom":[16711680,65280,255]})");
    const std::array<float, lookBlockLength> expected{35, 9,  3, 7, 1.5F, 0.5F, 2, 0.25F, 0.1F, 0.75F,
                                                      1,  42, 3, 1, 0,    0,    0, 1,     0,    0,
                                                      0,  1,  0, 0, 1,    0,    0, 1};
    EXPECT_THAT(makeLookBlock(look), ElementsAreArray(expected));
}

TEST(LookBlock, IsTheSameForEqualLooks)
{
    Look look;
    Look negative;
    for (const auto slider : {&Look::pixel, &Look::levels, &Look::scale, &Look::warp, &Look::contrast,
                              &Look::offset, &Look::grain, &Look::vignette, &Look::seed}) {
        look.*slider = 0.0F;
        negative.*slider = -0.0F;
    }
    ASSERT_EQ(look, negative);
    const LookBlock block = makeLookBlock(look);
    const LookBlock other = makeLookBlock(negative);
    using Bits = std::array<std::uint32_t, lookBlockLength>;
    EXPECT_EQ(std::bit_cast<Bits>(block), std::bit_cast<Bits>(other)) << "to the bit";
}

TEST(LookBlock, DropsTheTopByteOfAColour)
{
    Look look;
    look.custom = {0xFF102030, 0x80405060};
    Look opaque;
    opaque.custom = {0x102030, 0x405060};
    EXPECT_EQ(makeLookBlock(look), makeLookBlock(opaque));
}

TEST(LookBlock, CountsTheStopsThatAreDrawn)
{
    Look look;
    look.custom = {0x336699};
    LookBlock block = makeLookBlock(look);
    EXPECT_EQ(block[12], 2.0F);
    for (std::size_t i = 13; i < lookBlockLength; i += 3)
        EXPECT_FLOAT_EQ(block[i], 0.2F);
    look.custom = {1, 2, 3, 4, 5, 6, 7};
    block = makeLookBlock(look);
    EXPECT_EQ(block[12], 5.0F);
    EXPECT_FLOAT_EQ(block[27], 5.0F / 255.0F);
}

TEST(Uniforms, HoldTheHeaderThenThePreviousThenTheCurrentLook)
{
    Look previous;
    previous.dither = Dither::smooth;
    Look current;
    current.seed = 77;
    LookBlockCache cache;
    const UniformBlock block = makeUniforms({.previous = previous,
                                             .current = current,
                                             .width = 3024,
                                             .height = 1964,
                                             .mix = 0.25F,
                                             .time = 1.5,
                                             .edge = Edge::right},
                                            {}, {640, 480, true}, cache);
    const std::array<float, frameHeaderLength> header{3024, 1964, 1.5F, 0.25F, 1512, 1, 640,
                                                      480,  1,    1,    1,     0,    1, 16};
    EXPECT_THAT(frameHeader(block), ElementsAreArray(header));
    EXPECT_THAT(lookBlock(block, Slot::previous), ElementsAreArray(makeLookBlock(previous)));
    EXPECT_THAT(lookBlock(block, Slot::current), ElementsAreArray(makeLookBlock(current)));
    EXPECT_EQ(cellSize(block, Slot::previous), 1.0F);
    EXPECT_EQ(cellSize(block, Slot::current), 16.0F);
}

TEST(LookBlockCache, KeepsTheSixLooksSeenLast)
{
    LookBlockCache cache;
    std::array<Look, 7> looks;
    for (std::size_t i = 0; i < looks.size(); ++i)
        looks[i].seed = static_cast<float>(i);
    for (std::size_t i = 0; i < 6; ++i)
        cache.block(looks[i]);
    const LookBlock* second = &cache.block(looks[1]);
    EXPECT_EQ(&cache.block(looks[1]), second) << "a hit moves nothing";
    cache.block(looks[6]);
    EXPECT_EQ(cache.block(looks[1])[11], 1.0F);
    EXPECT_EQ(cache.block(looks[0])[11], 0.0F) << "the oldest was dropped and is made again";
}

} // namespace
} // namespace tessel
