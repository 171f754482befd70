// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_connection.h"
#include "platform/linux/x11/x11_window_system.h"
#include "support/surroundings.h"

#include <QGuiApplication>
#include <QWindow>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <xcb/shape.h>

namespace tessel {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;

class X11PanelTest : public testing::Test
{
protected:
    /// What a person with a mouse does.
    static void xdotool(const char* arguments)
    {
        ASSERT_EQ(QProcess::execute(QStringLiteral("xdotool"),
                                    QString::fromLatin1(arguments).split(QLatin1Char(' '))),
                  0);
    }

    std::vector<std::uint32_t> property(const char* name, xcb_atom_t type)
    {
        m_server.sync();
        return m_server.property(static_cast<xcb_window_t>(m_window.winId()), name, type);
    }

    const Variable m_platform{"QT_QPA_PLATFORM", "xcb"};
    VirtualDisplay m_display;
    WithApplication<QGuiApplication> m_application;
    X11Connection m_server;
    X11WindowSystem m_system;
    QWindow m_window;
};

TEST_F(X11PanelTest, FloatsAsPanelsDoAndTakesTheKeyboardOnDemand)
{
    const std::unique_ptr<PanelWindow> panel = m_system.makePanelWindow(m_window);
    panel->setFrame(QRect(10, 20, 100, 200));
    panel->show();
    EXPECT_TRUE(waitUntil([this] { return m_window.geometry() == QRect(10, 20, 100, 200); }));
    EXPECT_THAT(property("_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM),
                Contains(m_server.atom("_NET_WM_WINDOW_TYPE_DOCK")));
    EXPECT_THAT(property("_NET_WM_DESKTOP", XCB_ATOM_CARDINAL), ElementsAre(0xFFFFFFFF));
    EXPECT_EQ(property("WM_HINTS", XCB_ATOM_WM_HINTS).at(1), 0U) << "typing goes elsewhere";
    panel->setKeyboardFocus(KeyboardFocus::taken);
    EXPECT_EQ(property("WM_HINTS", XCB_ATOM_WM_HINTS).at(1), 1U);
    panel->setKeyboardFocus(KeyboardFocus::never);
    EXPECT_EQ(property("WM_HINTS", XCB_ATOM_WM_HINTS).at(1), 0U);
}

TEST_F(X11PanelTest, ClicksGoThroughAllButTheInputRegion)
{
    const std::unique_ptr<PanelWindow> panel = m_system.makePanelWindow(m_window);
    panel->setFrame(QRect(0, 0, 300, 300));
    panel->setInputRegion(QRegion(QRect(100, 100, 50, 60)));
    panel->show();
    panel->setInputRegion(QRegion(QRect(100, 100, 50, 60)));
    const auto id = static_cast<xcb_window_t>(m_window.winId());
    EXPECT_TRUE(waitUntil([&] {
        const auto reply = readReply(xcb_shape_get_rectangles_reply, m_server.get(),
                                     xcb_shape_get_rectangles(m_server.get(), id, XCB_SHAPE_SK_INPUT));
        if (reply == nullptr || xcb_shape_get_rectangles_rectangles_length(reply.get()) != 1)
            return false;
        const xcb_rectangle_t& area = *xcb_shape_get_rectangles_rectangles(reply.get());
        return QRect(area.x, area.y, area.width, area.height) == QRect(100, 100, 50, 60);
    }));
}

TEST_F(X11PanelTest, ThePointerIsHeardOverWhatTakesClicksAndPressesEverywhere)
{
    const std::unique_ptr<PanelWindow> panel = m_system.makePanelWindow(m_window);
    const std::unique_ptr<PointerFeed> feed = m_system.makePointerFeed(m_window);
    ASSERT_NE(feed, nullptr);
    std::vector<QPoint> moves;
    std::vector<QPoint> presses;
    int departures = 0;
    QObject::connect(feed.get(), &PointerFeed::moved, [&](QPoint at) { moves.push_back(at); });
    QObject::connect(feed.get(), &PointerFeed::left, [&] { ++departures; });
    QObject::connect(feed.get(), &PointerFeed::pressed, [&](QPoint at) { presses.push_back(at); });
    panel->setFrame(QRect(0, 0, 300, 300));
    panel->show();
    panel->setInputRegion(QRect(100, 100, 50, 60));
    xdotool("mousemove 120 110");
    ASSERT_TRUE(waitUntil([&] { return !moves.empty(); }));
    EXPECT_EQ(moves.back(), QPoint(120, 110));
    xdotool("mousemove 20 20");
    ASSERT_TRUE(waitUntil([&] { return departures == 1; }));
    const std::size_t before = moves.size();
    xdotool("mousemove 500 200");
    xdotool("click 2");
    xdotool("click 1");
    xdotool("click 3");
    ASSERT_TRUE(waitUntil([&] { return presses.size() == 2; }));
    EXPECT_EQ(presses.front(), QPoint(500, 200)) << "the middle button means nothing";
    EXPECT_EQ(moves.size(), before) << "elsewhere it may move as it likes";
}

TEST_F(X11PanelTest, KnowsWhetherSomebodyBlendsWindows)
{
    const std::unique_ptr<PanelWindow> panel = m_system.makePanelWindow(m_window);
    int changes = 0;
    QObject::connect(panel.get(), &PanelWindow::blendingChanged, [&] { ++changes; });
    EXPECT_FALSE(panel->isBlended());
    QProcess compositor;
    compositor.start(QStringLiteral("picom"), {QStringLiteral("--backend"), QStringLiteral("xrender"),
                                               QStringLiteral("--config"), QStringLiteral("/dev/null")});
    ASSERT_TRUE(compositor.waitForStarted());
    ASSERT_TRUE(waitUntil([&] { return panel->isBlended(); }));
    compositor.terminate();
    ASSERT_TRUE(waitUntil([&] { return !panel->isBlended(); }));
    EXPECT_EQ(changes, 2);
    compositor.waitForFinished();
}

} // namespace
} // namespace tessel
