// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_connection.h"
#include "platform/linux/x11/x11_screens.h"
#include "support/surroundings.h"

#include <QGuiApplication>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

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
    X11Connection m_connection;
};

TEST_F(ScreensTest, FollowsAMonitorThatIsResizedUnpluggedAndPluggedInAgain)
{
    const X11Screens screens(m_connection);
    int changes = 0;
    QObject::connect(&screens, &Screens::changed, [&changes] { ++changes; });
    const Screen whole{.name = QStringLiteral("screen"),
                       .frame = QRect(0, 0, 1280, 800),
                       .workArea = QRect(0, 0, 1280, 800),
                       .isPrimary = true};
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

    runEvents(400ms);
    EXPECT_EQ(changes, 3) << "one for each burst of changes";
}

TEST_F(ScreensTest, APanelTakesOfTheWorkAreaAndOfNothingElse)
{
    const X11Screens screens(m_connection);
    int changes = 0;
    QObject::connect(&screens, &Screens::changed, [&changes] { ++changes; });
    const std::vector<Screen> before = screens.list();
    // As window managers tell it, for each workspace.
    const std::uint32_t none = 0;
    m_connection.setProperty(m_connection.root(), "_NET_CURRENT_DESKTOP", XCB_ATOM_CARDINAL, {&none, 1});
    m_connection.setProperty(m_connection.root(), "_NET_WORKAREA", XCB_ATOM_CARDINAL,
                             std::array<std::uint32_t, 4>{0, 30, 1280, 770});
    m_connection.sync();
    ASSERT_TRUE(waitUntil([&] { return changes > 0; }));
    const std::vector<Screen> after = screens.list();
    ASSERT_THAT(after, SizeIs(1));
    EXPECT_EQ(after[0].workArea, QRect(0, 30, 1280, 770));
    EXPECT_TRUE(after[0].isSamePlace(before[0])) << "no window need be made anew";
}

class FractionalScreensTest : public ScreensTest
{
protected:
    FractionalScreensTest() : ScreensTest("1.75") {}
};

TEST_F(FractionalScreensTest, HaveAllTheirPixels)
{
    const std::vector<Screen> screens = X11Screens(m_connection).list();
    ASSERT_THAT(screens, SizeIs(1));
    EXPECT_EQ(screens.front().frame.size(), QSize(731, 457));
    EXPECT_EQ(screens.front().pixels(), QRect(0, 0, 1280, 800));
}

TEST_F(ScreensTest, LargerPointsAreQtsAloneWhereTheServerHasPoints)
{
    QtScreens screens(Layout::points);
    int changes = 0;
    QObject::connect(&screens, &Screens::changed, [&changes] { ++changes; });
    for (const double scale : {1.6, 1.25, 1.0}) {
        screens.setPointScale(scale);
        const int before = changes;
        ASSERT_TRUE(waitUntil([&] { return changes > before; }));
        const Screen screen = screens.list().front();
        EXPECT_EQ(screen.frame, QRect(0, 0, 1280, 800)) << scale;
        EXPECT_DOUBLE_EQ(screen.scale, 1) << scale;
        EXPECT_EQ(screen.workArea.size(), (QSizeF(1280, 800) / scale).toSize()) << scale;
    }
}

} // namespace
} // namespace tessel
