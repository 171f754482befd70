// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/drawing_test.h"

#include <optional>

namespace tessel {
namespace {

/// A context that can be lost, as when the GPU is reset.
class FragileContext : public GlContext
{
public:
    [[nodiscard]] bool makeCurrent() override { return m_context && m_context->makeCurrent(); }
    void lose() { m_context.reset(); }

private:
    std::optional<HeadlessContext> m_context{std::in_place};
};

class GraphicsTest : public DrawingTest
{
protected:
    ~GraphicsTest() override { graphics.makeCurrent(); }

    FragileContext* m_context = nullptr; ///< the newest
    bool m_hasGpu = true;
    Graphics m_ours{[this] {
        if (!m_hasGpu)
            throw ContextError("the card is gone");
        auto context = std::make_unique<FragileContext>();
        m_context = context.get();
        return context;
    }};
};

bool isSame(const Picture& one, const Picture& other)
{
    return std::ranges::equal(
        std::span(one.pixels.get(), std::size_t(one.width) * std::size_t(one.height)),
        std::span(other.pixels.get(), std::size_t(other.width) * std::size_t(other.height)));
}

TEST_F(GraphicsTest, ALostContextIsMadeAnewAndDrawsTheSame)
{
    const Look look;
    const Frame frame{.previous = look, .current = look, .width = 160, .height = 90};
    const auto before = m_ours.draw(frame);
    ASSERT_TRUE(before);
    int renewals = 0;
    QObject::connect(&m_ours, &Graphics::renewed, [&renewals] { ++renewals; });
    m_context->lose();
    const auto after = m_ours.draw(frame);
    ASSERT_TRUE(after);
    EXPECT_EQ(renewals, 1);
    EXPECT_TRUE(isSame(*before, *after));

    m_context->lose();
    m_hasGpu = false;
    EXPECT_THROW(static_cast<void>(m_ours.draw(frame)), ContextError);
    m_hasGpu = true;
    EXPECT_TRUE(isSame(*before, *m_ours.draw(frame))) << "it has come back";
}

TEST_F(GraphicsTest, WhatIsGivenBackIsMadeAnew)
{
    const Look look;
    const Frame frame{.previous = look, .current = look, .width = 160, .height = 90};
    const auto before = m_ours.draw(frame);
    const FragileContext* const first = m_context;
    m_hasGpu = false;
    m_ours.rest();
    EXPECT_TRUE(isSame(*before, *m_ours.draw(frame))) << "without another context the old one stays";
    m_hasGpu = true;
    m_ours.rest();
    EXPECT_NE(m_context, first);
    EXPECT_TRUE(isSame(*before, *m_ours.draw(frame)));
}

TEST_F(GraphicsTest, ContextsDoNotDisturbEachOther)
{
    const Look look;
    const Frame frame{.previous = look, .current = look, .width = 160, .height = 90};
    const auto one = m_ours.draw(frame);
    const auto other = graphics.draw(frame);
    ASSERT_TRUE(one && other);
    EXPECT_TRUE(isSame(*one, *other));
    EXPECT_TRUE(isSame(*one, *m_ours.draw(frame)));
}

TEST_F(GraphicsTest, PhotosFollowTheLargestScreen)
{
    QImage large(3000, 100, QImage::Format_Grayscale8);
    large.fill(128);
    const Look look = photoLook(large);
    const auto widthWith = [&](int longestScreen) {
        m_ours.setLongestScreen(longestScreen);
        m_ours.makeCurrent();
        return m_ours.encoder().photos().find(look.imagePath)->size.width;
    };
    EXPECT_EQ(widthWith(1000), 2048);
    EXPECT_EQ(widthWith(2800), 2800);
    EXPECT_EQ(widthWith(3840), 3000);
}

} // namespace
} // namespace tessel
