// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_connection.h"
#include "platform/linux/x11/x11_occlusion.h"
#include "support/surroundings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <string>
#include <tuple>
#include <vector>
#include <xcb/shape.h>

namespace tessel {
namespace {

using namespace std::chrono_literals;

constexpr QRect monitor(0, 0, 1280, 800);
constexpr int argbDepth = 32;

/// The program beside which the desktop's other programs, and their window manager, are played.
class X11OcclusionTest : public testing::Test
{
protected:
    X11OcclusionTest()
    {
        m_occlusion.emplace(m_ours, m_events);
        QObject::connect(&*m_occlusion, &X11Occlusion::changed, [this] { ++m_changes; });
        EXPECT_FALSE(isCovered());
    }

    [[nodiscard]] bool isCovered() const { return m_occlusion->isCovered(monitor); }

    void expectBecomes(bool covered)
    {
        m_server.sync();
        EXPECT_TRUE(waitUntil([&] { return isCovered() == covered; }));
    }

    /// Lets the adapter look at everything that was done.
    void expectStays(bool covered)
    {
        m_server.sync();
        runEvents(250ms);
        EXPECT_EQ(isCovered(), covered);
    }

    xcb_window_t makeWindow(const QRect& at, std::uint8_t depth = XCB_COPY_FROM_PARENT)
    {
        const xcb_window_t window = xcb_generate_id(m_server.get());
        const xcb_colormap_t colors = xcb_generate_id(m_server.get());
        const xcb_visualid_t visual = depth == argbDepth ? argbVisual() : m_server.screen().root_visual;
        xcb_create_colormap(m_server.get(), XCB_COLORMAP_ALLOC_NONE, colors, m_server.root(), visual);
        const std::array<std::uint32_t, 3> values{0, 0, colors};
        xcb_create_window(m_server.get(), depth, window, m_server.root(), static_cast<std::int16_t>(at.x()),
                          static_cast<std::int16_t>(at.y()), static_cast<std::uint16_t>(at.width()),
                          static_cast<std::uint16_t>(at.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                          XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_COLORMAP, values.data());
        return window;
    }

    /// Maps a window as a window manager does.
    void manage(xcb_window_t window)
    {
        xcb_map_window(m_server.get(), window);
        m_list.push_back(window);
        m_server.setProperty(m_server.root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, m_list);
    }

    xcb_window_t show(const QRect& at, std::uint8_t depth = XCB_COPY_FROM_PARENT)
    {
        const xcb_window_t window = makeWindow(at, depth);
        manage(window);
        return window;
    }

    void set(xcb_window_t window, const std::string& name, std::vector<std::uint32_t> values)
    {
        m_server.setProperty(window, name, XCB_ATOM_CARDINAL, values);
    }

    void move(xcb_window_t window, int x)
    {
        const auto value = static_cast<std::uint32_t>(x);
        xcb_configure_window(m_server.get(), window, XCB_CONFIG_WINDOW_X, &value);
    }

    xcb_window_t startCompositor()
    {
        const xcb_window_t owner = makeWindow(QRect(0, 0, 1, 1));
        xcb_client_message_event_t announcement{};
        announcement.response_type = XCB_CLIENT_MESSAGE;
        announcement.format = 32;
        announcement.window = m_server.root();
        announcement.type = m_server.atom("MANAGER");
        xcb_set_selection_owner(m_server.get(), owner, m_server.atom("_NET_WM_CM_S0"), XCB_CURRENT_TIME);
        xcb_send_event(m_server.get(), 0, m_server.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&announcement));
        return owner;
    }

    WithApplication<QCoreApplication> m_application;
    VirtualDisplay m_display;
    X11Connection m_server;
    X11Connection m_ours;
    X11Events m_events{m_ours};
    std::optional<X11Occlusion> m_occlusion;
    std::vector<std::uint32_t> m_list;
    int m_changes = 0;

private:
    xcb_visualid_t argbVisual()
    {
        auto depths = xcb_screen_allowed_depths_iterator(&m_server.screen());
        for (; depths.rem > 0; xcb_depth_next(&depths))
            if (depths.data->depth == argbDepth)
                return xcb_depth_visuals(depths.data)->visual_id;
        ADD_FAILURE() << "the X server has no visual with an alpha channel";
        return XCB_NONE;
    }
};

TEST_F(X11OcclusionTest, AWindowCoversWhileItIsShown)
{
    const xcb_window_t window = show(monitor);
    expectBecomes(true);
    xcb_unmap_window(m_server.get(), window);
    expectBecomes(false);
    xcb_map_window(m_server.get(), window);
    expectBecomes(true);
    move(window, 1);
    expectBecomes(false);
    EXPECT_TRUE(m_occlusion->isCovered(QRect(640, 0, 640, 800)));
    move(window, 0);
    expectBecomes(true);
    // As when a program crashes, and before its manager has noticed.
    xcb_destroy_window(m_server.get(), window);
    expectBecomes(false);
    EXPECT_EQ(m_changes, 6);
    EXPECT_FALSE(m_occlusion->isCovered(QRect()));
}

TEST_F(X11OcclusionTest, WindowsCoverTogetherWithTheirFrames)
{
    show(QRect(0, 0, 1280, 30)); // a panel
    const xcb_window_t left = show(QRect(2, 52, 636, 746));
    const xcb_window_t right = show(QRect(620, 30, 680, 790));
    expectStays(false);
    set(left, "_NET_FRAME_EXTENTS", {2, 2, 22, 2});
    expectBecomes(true);
    set(right, "_GTK_FRAME_EXTENTS", {10, 10, 10, 10}); // a shadow above and beside
    expectBecomes(false);
}

TEST_F(X11OcclusionTest, AHiddenWindowCoversNothing)
{
    const xcb_window_t window = show(monitor);
    expectBecomes(true);
    const std::vector<std::tuple<const char*, std::uint32_t, std::uint32_t, bool>> cases{
        {"_NET_WM_STATE", m_server.atom("_NET_WM_STATE_HIDDEN"), m_server.atom("_NET_WM_STATE_FULLSCREEN"),
         false},
        {"_NET_WM_STATE", m_server.atom("_NET_WM_STATE_SHADED"), m_server.atom("_NET_WM_STATE_ABOVE"), false},
        {"WM_STATE", 3, 1, false},
        {"_NET_WM_DESKTOP", 1, 0, false},
        {"_NET_WM_DESKTOP", 1, 0xFFFFFFFF, false},
        {"_NET_WM_WINDOW_TYPE", m_server.atom("_NET_WM_WINDOW_TYPE_DESKTOP"),
         m_server.atom("_NET_WM_WINDOW_TYPE_DOCK"), false},
        {"_NET_SHOWING_DESKTOP", 1, 0, true},
    };
    for (const auto& [property, hides, shows, ofRoot] : cases) {
        SCOPED_TRACE(property);
        set(ofRoot ? m_server.root() : window, property, {hides});
        expectBecomes(false);
        set(ofRoot ? m_server.root() : window, property, {shows});
        expectBecomes(true);
    }
    set(window, "_NET_WM_DESKTOP", {0});
    set(m_server.root(), "_NET_CURRENT_DESKTOP", {1});
    expectBecomes(false);
}

TEST_F(X11OcclusionTest, KnowsWhatIsFilled)
{
    const QRect corner(0, 0, 10, 10);
    const xcb_window_t window = show(monitor);
    expectBecomes(true);
    EXPECT_FALSE(m_occlusion->isFilled(corner)) << "it is as large, but panels lie above it";
    const auto expectFilled = [&](bool filled) {
        m_server.sync();
        EXPECT_TRUE(waitUntil([&] { return m_occlusion->isFilled(corner) == filled; })) << filled;
    };
    const std::uint32_t fullScreen = m_server.atom("_NET_WM_STATE_FULLSCREEN");
    set(window, "_NET_WM_STATE", {fullScreen});
    expectFilled(true);
    EXPECT_FALSE(m_occlusion->isFilled(QRect(3000, 0, 10, 10)));
    set(m_server.root(), "_NET_CURRENT_DESKTOP", {1});
    set(window, "_NET_WM_DESKTOP", {0});
    expectFilled(false);
    set(m_server.root(), "_NET_CURRENT_DESKTOP", {0});
    expectFilled(true);
    xcb_destroy_window(m_server.get(), window);
    expectFilled(false);
}

TEST_F(X11OcclusionTest, ShapedWindowsCoverWhatTheyShow)
{
    const xcb_window_t window = show(monitor);
    expectBecomes(true);
    const std::array<xcb_rectangle_t, 2> halves{{{0, 0, 600, 800}, {680, 0, 600, 800}}};
    xcb_shape_rectangles(m_server.get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, 0, window, 0, 0, 2,
                         halves.data());
    expectBecomes(false);
    EXPECT_TRUE(m_occlusion->isCovered(QRect(0, 0, 600, 800)));
    show(QRect(590, 0, 100, 800));
    expectBecomes(true);
}

TEST_F(X11OcclusionTest, OnlyACompositorLetsWindowsBeSeenThrough)
{
    const xcb_window_t window = show(monitor, argbDepth);
    expectBecomes(true);
    const xcb_window_t compositor = startCompositor();
    expectBecomes(false);
    set(window, "_NET_WM_OPAQUE_REGION", {0, 0, 1280, 700, 0, 700, 1280, 100});
    expectBecomes(true);
    set(window, "_NET_WM_WINDOW_OPACITY", {0xE0000000});
    expectBecomes(false);
    xcb_destroy_window(m_server.get(), compositor);
    expectBecomes(true);
}

TEST_F(X11OcclusionTest, AStormOfEventsTellsNothingUnlessItMatters)
{
    const xcb_window_t window = show(QRect(0, 0, 400, 300));
    expectStays(false);
    for (int i = 0; i < 1000; ++i)
        move(window, i % 800);
    expectStays(false);
    EXPECT_EQ(m_changes, 0);
    EXPECT_TRUE(waitUntil([this] { return m_occlusion->isCovered(QRect(999 % 800, 0, 400, 300)); }))
        << "and still the last one counts";
}

TEST(X11OcclusionWithoutServerTest, NothingIsCovered)
{
    qputenv("DISPLAY", ":98765");
    const WithApplication<QCoreApplication> application;
    X11Connection connection;
    X11Events events(connection);
    const X11Occlusion occlusion(connection, events);
    runEvents(20ms);
    EXPECT_FALSE(occlusion.isCovered(monitor));
    qunsetenv("DISPLAY");
}

} // namespace
} // namespace tessel
