// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/drawing_test.h"
#include "support/refusing_driver.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>

namespace tessel {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// A driver that cannot build one pattern, and an encoder that has built nothing yet.
class Refused : public DrawingTest
{
protected:
    Refused() { bad.pattern = Pattern::halo; }

    static Frame frameOf(const Look& look)
    {
        return {.previous = look, .current = look, .width = 320, .height = 180};
    }

    static std::string message(const std::function<void()>& work)
    {
        try {
            work();
        } catch (const DrawingError& error) {
            return error.what();
        }
        return "nothing was thrown";
    }

    Look bad;
    Look good;
    FrameEncoder fresh;
    RefusingDriver driver{"An eclipse"};
};

TEST_F(Refused, LooksAreErrorsThatNameThePatternAndTheReason)
{
    const std::string said = message([&] { fresh.prepare(frameOf(bad)); });
    EXPECT_THAT(said, StartsWith("The pattern Halo cannot be drawn: "));
    EXPECT_THAT(said, Not(HasSubstr("\n")));
    EXPECT_GT(said.size(), std::string("The pattern Halo cannot be drawn: ").size());
    EXPECT_EQ(message([&] { (void)fresh.isPrepared(frameOf(bad)); }), said);
    EXPECT_EQ(message([&] { (void)renderStill(fresh, frameOf(bad)); }), said);
    EXPECT_EQ(message([&] { (void)renderField(fresh, frameOf(bad)); }), said);
    EXPECT_EQ(message([&] { fresh.encodeCells(frameOf(bad)); }), said);
    EXPECT_EQ(RefusingDriver::refusals(), 1) << "a refused shader is not tried again";
}

TEST_F(Refused, LooksLeaveTheEncoderFitForOthers)
{
    const Picture before = draw(good, 320, 180);
    StillDrawing drawing(frameOf(bad), 64);
    EXPECT_THROW(drawing.advance(fresh), DrawingError);
    EXPECT_FALSE(drawing.take());
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    for (const GLenum object : {GLenum{GL_CURRENT_PROGRAM}, GLenum{GL_VERTEX_ARRAY_BINDING}}) {
        GLint bound = -1;
        glGetIntegerv(object, &bound);
        EXPECT_EQ(bound, 0);
    }
    EXPECT_FALSE(glIsEnabled(GL_SCISSOR_TEST));
    EXPECT_FALSE(glIsEnabled(GL_BLEND));
    const auto after = renderStill(fresh, frameOf(good));
    EXPECT_TRUE(
        std::equal(before.pixels.get(), before.pixels.get() + before.pixelCount(), after->pixels.get()));
    const auto both = renderStills(fresh, std::vector{bad, good}, 320, 180, 0, Edge::left);
    EXPECT_FALSE(both.front());
    EXPECT_TRUE(both.back());
}

TEST_F(Refused, LooksEndACrossFadeFromEitherSide)
{
    Frame fade{.previous = bad, .current = good, .width = 320, .height = 180, .mix = 0.5F};
    EXPECT_THROW(fresh.prepare(fade), DrawingError);
    fade.mix = 1.0F;
    EXPECT_NO_THROW(fresh.prepare(fade)) << "the look that cannot be drawn is gone";
    EXPECT_TRUE(fresh.isPrepared(fade));
}

} // namespace
} // namespace tessel
