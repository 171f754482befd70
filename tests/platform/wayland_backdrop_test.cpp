// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/gl_context.h"
#include "platform/fake_compositor.h"
#include "platform/linux/wayland/wayland_backdrops.h"
#include "platform/linux/wayland/wayland_connection.h"
#include "platform/linux/wayland/wayland_wallpaper_window.h"
#include "support/surroundings.h"

#include <gmock/gmock.h>

#include <ostream>
#include <random>

namespace tessel {

void PrintTo(FakeCompositor::Keeps keeps, std::ostream* out)
{
    *out << (keeps == FakeCompositor::Keeps::nothing ? "keeps no buffer" : "keeps the latest buffer");
}

namespace {

using testing::ElementsAre;
using Answers = FakeCompositor::Answers;
using Keeps = FakeCompositor::Keeps;
using namespace std::chrono_literals;

constexpr QSize size(97, 61);
constexpr std::uint32_t background = 0;
constexpr std::uint32_t bottom = 1;

PixelRect everything()
{
    return {0, 0, static_cast<std::uint16_t>(size.width()), static_cast<std::uint16_t>(size.height())};
}

class WaylandBackdropTest : public testing::TestWithParam<Keeps>
{
protected:
    WaylandBackdropTest() : m_backdrop(m_backdrops.of(FakeCompositor::outputName()))
    {
        m_drawn.fill(Qt::black);
        QObject::connect(&m_window, &WallpaperWindow::contentLost, &m_window, [this] { ++m_lost; });
        QObject::connect(&m_window, &WallpaperWindow::frameDue, &m_window, [this] { ++m_due; });
    }

    PixelCanvas& canvas() { return *std::get<PixelCanvas*>(m_window.canvas()); }

    /// Shows the window, and draws all of it.
    void begin()
    {
        m_window.show();
        ASSERT_TRUE(waitUntil([&] { return m_lost > 0; }));
        drawEverything();
    }

    void drawEverything()
    {
        std::fill_n(canvas().pixels(), size.width() * size.height(), 0xFF203040);
        m_drawn.fill(0xFF203040);
        canvas().presentPixels(std::array{everything()});
    }

    std::vector<ColoredRect> randomRectangles(int count)
    {
        const auto below = [this](int limit) {
            return std::uniform_int_distribution(0, limit - 1)(m_random);
        };
        std::vector<ColoredRect> made;
        for (int i = 0; i < count; ++i) {
            const int width = 1 + below(20);
            const int height = 1 + below(20);
            made.push_back({0xFF000000U | static_cast<std::uint32_t>(below(0x1000000)),
                            {static_cast<std::int16_t>(below(size.width() - width)),
                             static_cast<std::int16_t>(below(size.height() - height)),
                             static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height)}});
        }
        return made;
    }

    /// Draws rectangles, in either of the two ways, here and there.
    void draw(const std::vector<ColoredRect>& rectangles, bool inPixels)
    {
        const auto fill = [&rectangles](const auto& put) {
            for (const auto& [color, area] : rectangles)
                for (int y = area.y; y < area.y + area.height; ++y)
                    for (int x = area.x; x < area.x + area.width; ++x)
                        put(x, y, color);
        };
        fill([this](int x, int y, std::uint32_t color) { m_drawn.setPixel(x, y, color); });
        if (!inPixels) {
            canvas().present(rectangles);
            return;
        }
        std::uint32_t* const pixels = canvas().pixels();
        fill([pixels](int x, int y, std::uint32_t color) { pixels[y * size.width() + x] = color; });
        std::vector<PixelRect> areas;
        for (const ColoredRect& rectangle : rectangles)
            areas.push_back(rectangle.area);
        canvas().presentPixels(areas);
    }

    [[nodiscard]] bool isShown()
    {
        return waitUntil([this] { return m_compositor.shown() == m_drawn; });
    }

    const WithApplication<QCoreApplication> m_application;
    FakeCompositor m_compositor{GetParam(), size};
    std::unique_ptr<WaylandConnection> m_connection = WaylandConnection::open();
    WaylandBackdrops m_backdrops{*m_connection};
    std::shared_ptr<WaylandBackdrop> m_backdrop;
    WaylandWallpaperWindow m_window{m_backdrop, m_connection->sharedMemory(), size, Rasterizer::software};
    QImage m_drawn{size, QImage::Format_RGB32}; ///< what is to be shown
    int m_lost = 0;
    int m_due = 0;
    std::mt19937 m_random{7};
};

TEST_P(WaylandBackdropTest, ShowsAllThatWasDrawnWhereverBuffersAre)
{
    ASSERT_NO_FATAL_FAILURE(begin());
    for (int frame = 0; frame < 60; ++frame) {
        ASSERT_TRUE(waitUntil([&] { return canvas().isReady(); })) << frame;
        // Now and then so many that they are told as a whole; and often the next before this one is shown.
        draw(randomRectangles(frame % 10 == 9 ? 400 : 1 + frame % 7), frame % 3 == 0);
        ASSERT_TRUE(frame % 4 == 0 || isShown()) << frame;
    }
    EXPECT_TRUE(isShown());
}

TEST_P(WaylandBackdropTest, DrawsNothingThatNobodyWouldSee)
{
    m_compositor.setAnswers(Answers::none);
    ASSERT_NO_FATAL_FAILURE(begin());
    m_window.setFrameRate(60);
    runEvents(300ms);
    EXPECT_EQ(m_due, 0);
    m_compositor.setAnswers(Answers::all);
    EXPECT_TRUE(waitUntil([&] { return m_due > 3; }));
    m_window.setFrameRate(0);
    runEvents(100ms);
    const int commits = m_compositor.commitCount();
    runEvents(200ms);
    EXPECT_EQ(m_compositor.commitCount(), commits);
}

TEST_P(WaylandBackdropTest, FollowsAnOutputThatGoesAndComesBack)
{
    m_window.setFrameRate(60);
    int objects = 0;
    for (int time = 0; time < 50; ++time) {
        SCOPED_TRACE(time);
        m_lost = 0;
        ASSERT_NO_FATAL_FAILURE(begin());
        ASSERT_TRUE(isShown());
        m_compositor.unplugOutput();
        ASSERT_TRUE(waitUntil([&] { return m_compositor.surfaceCount() == 0; }));
        EXPECT_FALSE(canvas().isReady());
        if (time == 0)
            objects = m_compositor.objectCount();
        m_compositor.plugOutput();
    }
    ASSERT_TRUE(waitUntil([&] { return m_compositor.surfaceCount() == 1; }));
    m_compositor.unplugOutput();
    ASSERT_TRUE(waitUntil([&] { return m_compositor.surfaceCount() == 0; }));
    EXPECT_TRUE(waitUntil([&] { return m_compositor.objectCount() == objects; }));
}

TEST_P(WaylandBackdropTest, RestsAsAPictureAndIsItAgainAfterwards)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(0xFFA06010);
    const auto showsPicture = [&] { return m_compositor.shown() == picture; };
    m_backdrop->setPicture(picture, QStringLiteral("picture.png"));
    EXPECT_TRUE(waitUntil(showsPicture));
    ASSERT_NO_FATAL_FAILURE(begin());
    EXPECT_TRUE(isShown());
    m_window.hide();
    EXPECT_TRUE(waitUntil(showsPicture));
    runEvents(100ms);
    const int commits = m_compositor.commitCount();
    runEvents(200ms);
    EXPECT_EQ(m_compositor.commitCount(), commits) << "of a picture that stays";
    m_compositor.unplugOutput();
    ASSERT_TRUE(waitUntil([&] { return m_compositor.surfaceCount() == 0; }));
    m_compositor.plugOutput();
    EXPECT_TRUE(waitUntil(showsPicture));
}

TEST_P(WaylandBackdropTest, StandsAboveAnotherWallpaperButStaysUnderAWindow)
{
    m_compositor.setAnswers(Answers::bottomOnly);
    ASSERT_NO_FATAL_FAILURE(begin());
    m_window.setFrameRate(60);
    EXPECT_TRUE(waitUntil([&] { return m_due > 3; }));
    EXPECT_THAT(m_compositor.layers(), ElementsAre(background, bottom));

    m_window.hide();
    ASSERT_TRUE(waitUntil([&] { return m_compositor.surfaceCount() == 0; }));
    m_compositor.setAnswers(Answers::none);
    m_lost = 0;
    ASSERT_NO_FATAL_FAILURE(begin());
    EXPECT_TRUE(waitUntil([&] { return m_compositor.layers().size() == 3; }));
    EXPECT_THAT(m_compositor.layers(), ElementsAre(background, bottom, background));
}

INSTANTIATE_TEST_SUITE_P(Buffers, WaylandBackdropTest, testing::Values(Keeps::nothing, Keeps::latest));

} // namespace
} // namespace tessel
