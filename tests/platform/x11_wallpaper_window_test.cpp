// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_connection.h"
#include "platform/linux/x11/x11_upload.h"
#include "platform/linux/x11/x11_window_system.h"
#include "support/surroundings.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRegion>
#include <QTemporaryDir>
#include <QWindow>
#include <epoxy/gl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>
#include <xcb/shape.h>

namespace tessel {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

/// Of the window, on a desktop that is larger.
constexpr QRect place(160, 40, 1120, 760);
const Screen screen{.name = QStringLiteral("screen"), .frame = place};

/// The window among others, whose window manager is played.
class X11WallpaperWindowTest : public testing::Test
{
protected:
    X11WallpaperWindowTest()
    {
        announce(m_server.root(), m_manager);
        announce(m_manager, m_manager);
        support({m_server.atom("_NET_WM_WINDOW_TYPE_DESKTOP")});
        m_window = m_system.makeWallpaperWindow(screen, Rasterizer::software);
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
        const auto reply = readReply(xcb_shape_get_rectangles_reply, m_server.get(),
                                     xcb_shape_get_rectangles(m_server.get(), m_id, XCB_SHAPE_SK_BOUNDING));
        QRegion missing(QRect({}, place.size()));
        const xcb_rectangle_t* first = xcb_shape_get_rectangles_rectangles(reply.get());
        for (int i = 0; i < xcb_shape_get_rectangles_rectangles_length(reply.get()); ++i)
            missing -= QRect(first[i].x, first[i].y, first[i].width, first[i].height);
        return missing;
    }

    /// What of the desktop can be seen at a place.
    std::uint32_t colorAt(QPoint pixel)
    {
        m_server.sync();
        const auto cookie = xcb_get_image(m_server.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_server.root(),
                                          static_cast<std::int16_t>(pixel.x()),
                                          static_cast<std::int16_t>(pixel.y()), 1, 1, ~0U);
        const auto reply = readReply(xcb_get_image_reply, m_server.get(), cookie);
        std::uint32_t color = 0;
        if (reply != nullptr)
            std::memcpy(&color, xcb_get_image_data(reply.get()), sizeof color);
        return color & 0xFFFFFF;
    }

    /// Another program's window, over everything.
    xcb_window_t makeCover()
    {
        const xcb_window_t window = xcb_generate_id(m_server.get());
        xcb_create_window(m_server.get(), XCB_COPY_FROM_PARENT, window, m_server.root(), 0, 0, 1280, 800, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_map_window(m_server.get(), window);
        m_server.setProperty(m_server.root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, {&window, 1});
        m_server.sync();
        return window;
    }

    /// Whether the window manager is left out.
    bool isUnmanaged()
    {
        const auto reply = readReply(xcb_get_window_attributes_reply, m_server.get(),
                                     xcb_get_window_attributes(m_server.get(), m_id));
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
    X11WindowSystem m_system;
    std::unique_ptr<WallpaperWindow> m_window;
    xcb_window_t m_id = XCB_WINDOW_NONE;
    int m_showings = 0;
};

TEST_F(X11WallpaperWindowTest, BelongsToTheWindowThatTheDesktopIsDrawnIn)
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

TEST_F(X11WallpaperWindowTest, ComesBackOnTopOfADesktopThatWasStartedAnew)
{
    m_window->show();
    ASSERT_TRUE(waitUntil([this] { return placeOf(m_server, m_id).has_value(); }));
    countShowings();
    const xcb_window_t desktop = makeDesktop();
    stack({m_id, desktop});
    ASSERT_TRUE(waitUntil([&] { return showings() == 1; }));
    EXPECT_THAT(belongsTo(), ElementsAre(desktop));

    stack({m_id, desktop});
    runEvents(800ms);
    EXPECT_EQ(showings(), 1) << "a window manager that wants it so is not fought with";

    stack({desktop, m_id});
    runEvents(500ms);
    EXPECT_EQ(showings(), 1);
    stack({m_id, desktop});
    EXPECT_TRUE(waitUntil([&] { return showings() == 2; }));

    m_window->hide();
    stack({desktop});
    stack({m_id, desktop});
    runEvents(800ms);
    EXPECT_EQ(showings(), 2) << "down is down";
}

TEST_F(X11WallpaperWindowTest, LiesBelowAllWindowsWhereNobodyKnowsDesktops)
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

TEST_F(X11WallpaperWindowTest, CannotBeClosedByOthers)
{
    class Closings : public QObject
    {
    public:
        int count = 0;

    protected:
        bool eventFilter(QObject* /*watched*/, QEvent* event) override
        {
            count += event->type() == QEvent::Close ? 1 : 0;
            return false;
        }
    } closings;
    QGuiApplication::allWindows().constLast()->installEventFilter(&closings);
    m_window->show();
    auto* canvas = std::get<PixelCanvas*>(m_window->canvas());
    ASSERT_TRUE(waitUntil([&] { return canvas->isReady(); }));
    xcb_client_message_event_t close{};
    close.response_type = XCB_CLIENT_MESSAGE;
    close.format = 32;
    close.window = m_id;
    close.type = m_server.atom("WM_PROTOCOLS");
    close.data.data32[0] = m_server.atom("WM_DELETE_WINDOW");
    xcb_send_event(m_server.get(), 0, m_id, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&close));
    m_server.sync();
    ASSERT_TRUE(waitUntil([&] { return closings.count == 1; }));
    EXPECT_TRUE(canvas->isReady());
    EXPECT_EQ(placeOf(m_server, m_id), place);
}

TEST_F(X11WallpaperWindowTest, ComesBackToItsPlace)
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

TEST_F(X11WallpaperWindowTest, LeavesTheIconsOfTheDesktopFree)
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
    m_system.leaveIconsFree({{screen, file}});
    m_window->show();
    ASSERT_TRUE(waitUntil([&] { return holes() == wanted; }));

    const QRegion moved(QRect(400, 30, 64, 20));
    showIcons(picture, moved);
    ASSERT_TRUE(waitUntil([&] { return holes() == withRims(moved); }));

    showIcons(other, moved);
    runEvents(600ms);
    EXPECT_EQ(holes(), withRims(moved)) << "a picture that is not ours";
    m_system.leaveIconsFree({{screen, folder.filePath(QStringLiteral("b.png"))}});
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

TEST_F(X11WallpaperWindowTest, AsksForFramesAsLongAsItIsSeen)
{
    int frames = 0;
    QObject::connect(m_window.get(), &WallpaperWindow::frameDue, [&frames] { ++frames; });
    m_window->setFrameRate(20);
    runEvents(200ms);
    EXPECT_EQ(frames, 0) << "it is not shown";
    m_window->show();
    EXPECT_TRUE(waitUntil([&] { return frames > 3; }));

    const xcb_window_t cover = makeCover();
    // The last frames may be on their way while it is noticed.
    ASSERT_TRUE(waitUntil([&, seen = -1]() mutable {
        runEvents(200ms);
        return std::exchange(seen, frames) == frames;
    }));
    xcb_destroy_window(m_server.get(), cover);
    m_server.setProperty(m_server.root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, {});
    m_server.sync();
    const int before = frames;
    EXPECT_TRUE(waitUntil([&] { return frames > before + 3; }));

    m_window->setFrameRate(0);
    const int last = frames;
    runEvents(200ms);
    EXPECT_EQ(frames, last);
}

TEST_F(X11WallpaperWindowTest, ShowsWhatIsDrawn)
{
    auto* canvas = std::get<PixelCanvas*>(m_window->canvas());
    m_window->show();
    ASSERT_TRUE(waitUntil([&] { return canvas->isReady(); }));
    std::fill_n(canvas->pixels(), place.width() * place.height(), 0x112233U);
    canvas->presentPixels(std::array{PixelRect{0, 0, 30, 200}, PixelRect{400, 400, 30, 200}});
    // The server reads that memory when it comes to it.
    EXPECT_TRUE(waitUntil([&] { return colorAt(place.topLeft() + QPoint(405, 405)) == 0x112233U; }));
    std::fill_n(canvas->pixels(), place.width() * place.height(), 0x445566U);
    canvas->presentPixels(std::array{PixelRect{410, 410, 10, 10}});
    // What is presented last is waited for: it comes by another connection than the question.
    EXPECT_TRUE(waitUntil([&] { return colorAt(place.topLeft() + QPoint(415, 415)) == 0x445566U; }));
    EXPECT_EQ(colorAt(place.topLeft() + QPoint(405, 405)), 0x112233U);
    EXPECT_EQ(colorAt(place.topLeft() + QPoint(425, 425)), 0x112233U);
    const std::array cells{ColoredRect{0xFF0000, {0, 0, 10, 10}}, ColoredRect{0xFF0000, {20, 0, 10, 10}},
                           ColoredRect{0x00FF00, {10, 0, 10, 10}}};
    canvas->present(cells);
    EXPECT_TRUE(waitUntil([&] { return colorAt(place.topLeft() + QPoint(15, 5)) == 0x00FF00U; }));
    EXPECT_EQ(colorAt(place.topLeft() + QPoint(5, 5)), 0xFF0000U);
    EXPECT_EQ(colorAt(place.topLeft() + QPoint(25, 5)), 0xFF0000U);
}

TEST_F(X11WallpaperWindowTest, AGpuDrawsIntoItWithoutWaitingForTheScreen)
{
    const std::unique_ptr<WallpaperWindow> window = m_system.makeWallpaperWindow(screen, Rasterizer::gpu);
    const QWindow* surface = QGuiApplication::allWindows().constFirst(); // the newest
    const std::unique_ptr<GlContext> context = m_system.makeContext();
    auto* canvas = std::get<GpuCanvas*>(window->canvas());
    EXPECT_FALSE(canvas->makeCurrent(*context)) << "it is not shown";
    window->show();
    ASSERT_TRUE(waitUntil([&] { return canvas->makeCurrent(*context); }));
    EXPECT_EQ(surface->format().swapInterval(), 0);
    glClearColor(0, 0, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    canvas->present(*context);
    EXPECT_TRUE(waitUntil([&] { return colorAt({500, 500}) == 0x0000FFU; }));
}

/// A server with room for few clients, all of it taken.
class FullServerTest : public testing::Test
{
protected:
    FullServerTest()
    {
        while (m_clients.size() < 100) {
            auto client = std::make_unique<X11Connection>();
            if (!client->isValid())
                break;
            m_clients.push_back(std::move(client));
        }
    }

    const Variable m_platform{"QT_QPA_PLATFORM", "xcb"};
    VirtualDisplay m_display{QStringLiteral("1280x800x24"),
                             {QStringLiteral("-maxclients"), QStringLiteral("64")}};
    WithApplication<QGuiApplication> m_application;
    std::vector<std::unique_ptr<X11Connection>> m_clients;
};

TEST_F(FullServerTest, TheProgramGoesOnWithoutWindows)
{
    ASSERT_LT(m_clients.size(), 100U);
    X11WindowSystem system;
    EXPECT_EQ(system.focus(), nullptr);
    EXPECT_EQ(system.makeWallpaperWindow(screen, Rasterizer::software), nullptr);
    QWindow panel;
    EXPECT_EQ(system.makePanelWindow(panel), nullptr);
    EXPECT_EQ(system.makePointerFeed(panel), nullptr);
    EXPECT_THAT(system.screens().list(), testing::SizeIs(1)) << "pictures can still be made for it";
    runEvents(100ms);
}

} // namespace
} // namespace tessel
