// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/screens.h"
#include "support/surroundings.h"

#include <QGuiApplication>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessel {
namespace {

using namespace std::chrono_literals;
using testing::IsEmpty;
using testing::SizeIs;

class ScreensTest : public testing::Test
{
protected:
    explicit ScreensTest(const char* scale = "1") : m_scale("QT_SCALE_FACTOR", scale) {}

    const Variable m_platform{"QT_QPA_PLATFORM", "xcb"};
    const Variable m_scale;
    VirtualDisplay m_display;
    WithApplication<QGuiApplication> m_application;
};

TEST_F(ScreensTest, FollowsAMonitorThatIsResizedUnpluggedAndPluggedInAgain)
{
    const QtScreens screens;
    int changes = 0;
    QObject::connect(&screens, &Screens::changed, [&changes] { ++changes; });
    const Screen whole{QStringLiteral("screen"), QRect(0, 0, 1280, 800), 1};
    EXPECT_EQ(screens.list(), std::vector{whole});

    xrandr("--fb 1280x800 --output screen --off");
    ASSERT_TRUE(waitUntil([&] { return changes > 0; }));
    EXPECT_THAT(screens.list(), IsEmpty());

    xrandr("--output screen --auto");
    ASSERT_TRUE(waitUntil([&] { return changes > 1; }));
    EXPECT_EQ(screens.list(), std::vector{whole});

    xrandr("--newmode small 24 800 820 840 860 600 602 604 620");
    xrandr("--addmode screen small");
    xrandr("--output screen --mode small");
    ASSERT_TRUE(waitUntil([&] { return changes > 2; }));
    ASSERT_THAT(screens.list(), SizeIs(1));
    EXPECT_EQ(screens.list().front().pixels(), QRect(0, 0, 800, 600));

    settle(400ms);
    EXPECT_EQ(changes, 3) << "one for each burst of changes";
}

class FractionalScreensTest : public ScreensTest
{
protected:
    FractionalScreensTest() : ScreensTest("1.75") {}
};

TEST_F(FractionalScreensTest, HaveAllTheirPixels)
{
    const std::vector<Screen> screens = QtScreens().list();
    ASSERT_THAT(screens, SizeIs(1));
    EXPECT_EQ(screens.front().frame.size(), QSize(731, 457));
    EXPECT_EQ(screens.front().pixels(), QRect(0, 0, 1280, 800));
}

} // namespace
} // namespace tessel
