// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/desktop_window.h"
#include "platform/gl_context.h"
#include "platform/linux/x11/x11_backdrop.h"
#include "platform/linux/x11/x11_connection.h"
#include "support/surroundings.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRegion>
#include <QTemporaryDir>
#include <QWindow>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <xcb/shape.h>

namespace tessel {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

/// Of the window, on a desktop that is larger.
constexpr QRect place(160, 40, 1120, 760);

/// The window among others, whose window manager is played.
class X11DesktopWindowTest : public testing::Test
{
protected:
    X11DesktopWindowTest()
    {
        announce(m_server.root(), m_manager);
        announce(m_manager, m_manager);
        support({m_server.atom("_NET_WM_WINDOW_TYPE_DESKTOP")});
        m_window = makeDesktopWindow({QStringLiteral("screen"), place, 1}, m_context);
        m_id = static_cast<xcb_window_t>(QGuiApplication::allWindows().constLast()->winId());
    }

    xcb_window_t makeWindow()
    {
        const xcb_window_t window = xcb_generate_id(m_server.get());
        xcb_create_window(m_server.get(), XCB_COPY_FROM_PARENT, window, m_server.root(), 0, 0, 1280, 800, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        return window;
    }

    /// Says in a window's property which one is the window manager's.
    void announce(xcb_window_t window, xcb_window_t manager)
    {
        m_server.setProperty(window, "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW, {&manager, 1});
        m_server.sync();
    }

    /// Says what the window manager knows.
    void support(const std::vector<std::uint32_t>& atoms)
    {
        m_server.setProperty(m_server.root(), "_NET_SUPPORTED", XCB_ATOM_ATOM, atoms);
        m_server.sync();
    }

    /// The window in which a file manager draws the desktop.
    xcb_window_t makeDesktop()
    {
        const xcb_window_t window = makeWindow();
        const std::uint32_t type = m_server.atom("_NET_WM_WINDOW_TYPE_DESKTOP");
        m_server.setProperty(window, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, {&type, 1});
        xcb_map_window(m_server.get(), window);
        m_server.sync();
        return window;
    }

    /// Tells the order of the windows as window managers do.
    void stack(const std::vector<std::uint32_t>& fromBelow)
    {
        m_server.setProperty(m_server.root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, fromBelow);
        m_server.sync();
    }

    std::vector<std::uint32_t> belongsTo()
    {
        return m_server.property(m_id, "WM_TRANSIENT_FOR", XCB_ATOM_WINDOW);
    }

    /// What of the window is not there.
    QRegion holes()
    {
        const XcbPointer<xcb_shape_get_rectangles_reply_t> reply(xcb_shape_get_rectangles_reply(
            m_server.get(), xcb_shape_get_rectangles(m_server.get(), m_id, XCB_SHAPE_SK_BOUNDING), nullptr));
        QRegion missing(QRect({}, place.size()));
        const xcb_rectangle_t* first = xcb_shape_get_rectangles_rectangles(reply.get());
        for (int i = 0; i < xcb_shape_get_rectangles_rectangles_length(reply.get()); ++i)
            missing -= QRect(first[i].x, first[i].y, first[i].width, first[i].height);
        return missing;
    }

    /// Whether the window manager is left out.
    bool isUnmanaged()
    {
        const XcbPointer<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
            m_server.get(), xcb_get_window_attributes(m_server.get(), m_id), nullptr));
        return reply->override_redirect != 0;
    }

    /// Whether one window lies below another in truth, whatever is told about them.
    bool isBelow(xcb_window_t lower, xcb_window_t upper)
    {
        const std::vector<xcb_window_t> fromBelow = childrenOf(m_server, m_server.root());
        return std::ranges::find(fromBelow, lower) < std::ranges::find(fromBelow, upper);
    }

    void destroy(xcb_window_t window)
    {
        xcb_destroy_window(m_server.get(), window);
        m_server.sync();
    }

    void restack(xcb_window_t window, xcb_stack_mode_t to)
    {
        const std::uint32_t mode = to;
        xcb_configure_window(m_server.get(), window, XCB_CONFIG_WINDOW_STACK_MODE, &mode);
        m_server.sync();
    }

    void countShowings()
    {
        static constexpr std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_server.get(), m_id, XCB_CW_EVENT_MASK, &events);
        m_server.sync();
    }

    int showings()
    {
        m_server.sync();
        while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(m_server.get())})
            m_showings += (event->response_type & 0x7F) == XCB_MAP_NOTIFY ? 1 : 0;
        return m_showings;
    }

    const Variable m_platform{"QT_QPA_PLATFORM", "xcb"};
    VirtualDisplay m_display;
    WithApplication<QGuiApplication> m_application;
    X11Connection m_server;
    const xcb_window_t m_manager = makeWindow();
    GlContext m_context;
    std::unique_ptr<DesktopWindow> m_window;
    xcb_window_t m_id = XCB_WINDOW_NONE;
    int m_showings = 0;
};

TEST_F(X11DesktopWindowTest, BelongsToTheWindowThatTheDesktopIsDrawnIn)
{
    const xcb_window_t desktop = makeDesktop();
    stack({desktop});
    m_window->show();
    EXPECT_THAT(belongsTo(), ElementsAre(desktop));
    m_window->hide();
    destroy(desktop);
    m_window->show();
    EXPECT_THAT(belongsTo(), IsEmpty()) << "nobody draws it";
}

TEST_F(X11DesktopWindowTest, ComesBackOnTopOfADesktopThatWasStartedAnew)
{
    m_window->show();
    settle(100ms);
    countShowings();
    const xcb_window_t desktop = makeDesktop();
    stack({m_id, desktop});
    ASSERT_TRUE(waitUntil([&] { return showings() == 1; }));
    EXPECT_THAT(belongsTo(), ElementsAre(desktop));

    stack({m_id, desktop});
    settle(800ms);
    EXPECT_EQ(showings(), 1) << "a window manager that wants it so is not fought with";

    stack({desktop, m_id});
    settle(500ms);
    EXPECT_EQ(showings(), 1);
    stack({m_id, desktop});
    EXPECT_TRUE(waitUntil([&] { return showings() == 2; }));

    m_window->hide();
    stack({desktop});
    stack({m_id, desktop});
    settle(800ms);
    EXPECT_EQ(showings(), 2) << "down is down";
}

TEST_F(X11DesktopWindowTest, LiesBelowAllWindowsWhereNobodyKnowsDesktops)
{
    const xcb_window_t other = makeWindow();
    xcb_map_window(m_server.get(), other);
    const auto showAnew = [&] {
        m_window->hide();
        m_window->show();
        return isUnmanaged();
    };
    m_window->show();
    EXPECT_FALSE(isUnmanaged());
    EXPECT_TRUE(waitUntil([&] { return isBelow(m_id, other); })) << "nobody draws a desktop";

    support({});
    EXPECT_TRUE(waitUntil([&] { return isUnmanaged(); })) << "another manager has taken over";
    EXPECT_TRUE(waitUntil([&] { return isBelow(m_id, other); }));
    restack(m_id, XCB_STACK_MODE_ABOVE);
    EXPECT_TRUE(waitUntil([&] { return isBelow(m_id, other); }));

    const xcb_window_t desktop = makeDesktop();
    restack(desktop, XCB_STACK_MODE_BELOW);
    EXPECT_TRUE(showAnew());
    EXPECT_TRUE(waitUntil([&] { return isBelow(desktop, m_id) && isBelow(m_id, other); }));
    restack(m_id, XCB_STACK_MODE_BELOW);
    EXPECT_TRUE(waitUntil([&] { return isBelow(desktop, m_id) && isBelow(m_id, other); }));

    support({m_server.atom("_NET_WM_WINDOW_TYPE_DESKTOP")});
    EXPECT_FALSE(showAnew());
    destroy(m_manager);
    EXPECT_TRUE(showAnew()) << "one that was killed is no manager";
}

TEST_F(X11DesktopWindowTest, ComesBackToItsPlace)
{
    m_window->show();
    const auto isInPlace = [this] { return placeOf(m_server, m_id) == place; };
    ASSERT_TRUE(waitUntil(isInPlace));
    const std::array<std::uint32_t, 2> values{22, 600};
    xcb_configure_window(m_server.get(), m_id, XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_HEIGHT, values.data());
    m_server.sync();
    EXPECT_FALSE(isInPlace());
    EXPECT_TRUE(waitUntil(isInPlace));
}

TEST_F(X11DesktopWindowTest, LeavesTheIconsOfTheDesktopFree)
{
    const QTemporaryDir folder;
    const auto saved = [&](const QString& name, QColor color) {
        QImage whole(1280, 800, QImage::Format_RGB32);
        whole.fill(color);
        QPainter(&whole).fillRect(0, 300, 1280, 300, Qt::darkCyan);
        EXPECT_TRUE(whole.copy(place).save(folder.filePath(name)));
        return whole;
    };
    const QString file = folder.filePath(QStringLiteral("a.png"));
    const QImage picture = saved(QStringLiteral("a.png"), Qt::darkBlue);
    const QImage other = saved(QStringLiteral("b.png"), Qt::darkRed);
    const xcb_window_t desktop = makeDesktop();
    const auto showIcons = [&](QImage on, const QRegion& icons) {
        QPainter painter(&on);
        for (const QRect& icon : icons)
            painter.fillRect(icon, Qt::white);
        painter.end();
        upload(m_server, desktop, on, {});
    };
    const auto withRims = [](const QRegion& icons) {
        QRegion result;
        for (const QRect& icon : icons)
            result += icon.adjusted(-2, -2, 2, 2);
        return (result & place).translated(-place.topLeft());
    };
    QRegion icons(QRect(135, 280, 48, 48));
    icons += QRect(1000, 797, 7, 3);
    const QRegion wanted = withRims(icons);
    stack({desktop});
    showIcons(picture, icons);
    m_window->setPictureBehind(file);
    m_window->show();
    ASSERT_TRUE(waitUntil([&] { return holes() == wanted; }));

    const QRegion moved(QRect(400, 30, 64, 20));
    showIcons(picture, moved);
    ASSERT_TRUE(waitUntil([&] { return holes() == withRims(moved); }));

    showIcons(other, moved);
    settle(600ms);
    EXPECT_EQ(holes(), withRims(moved)) << "a picture that is not ours";
    m_window->setPictureBehind(folder.filePath(QStringLiteral("b.png")));
    showIcons(other, icons);
    EXPECT_TRUE(waitUntil([&] { return holes() == wanted; }));

    m_window->hide();
    showIcons(other, moved);
    m_window->show();
    EXPECT_TRUE(waitUntil([&] { return holes() == withRims(moved); })) << "what changed while it was down";

    m_window->hide();
    destroy(desktop);
    m_window->show();
    EXPECT_TRUE(waitUntil([&] { return holes().isEmpty(); })) << "nobody draws the desktop any more";
}

} // namespace
} // namespace tessel
