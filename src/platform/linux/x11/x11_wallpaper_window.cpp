// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_wallpaper_window.h"

#include "base/gl_context.h"
#include "base/identity.h"
#include "platform/linux/qt_gl_context.h"
#include "platform/linux/x11/x11_canvas.h"
#include "platform/linux/x11/x11_connection.h"
#include "platform/linux/x11/x11_desktop_icons.h"
#include "platform/linux/x11/x11_occlusion.h"
#include "platform/linux/x11/x11_screen_power.h"
#include "platform/linux/x11/x11_stacking.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <utility>
#include <xcb/shape.h>

namespace tessel {

namespace {

/// Qt's number for _NET_WM_WINDOW_TYPE_DESKTOP in the property below.
constexpr int desktopType = 0x2;
constexpr auto typeProperty = "_q_xcb_wm_window_type";
constexpr std::uint32_t everyWorkspace = 0xFFFFFFFF;

xcb_connection_t* connectionOfQt()
{
    auto* application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return application != nullptr ? application->connection() : nullptr;
}

QScreen* screenNamed(const QString& name)
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    const auto found = std::ranges::find(screens, name, &QScreen::name);
    return found == screens.end() ? QGuiApplication::primaryScreen() : *found;
}

/// The window itself: all that Qt tells about it.
class Surface : public QWindow
{
    Q_OBJECT

public:
    Surface(const Screen& screen, QSurface::SurfaceType type) : QWindow(screenNamed(screen.name))
    {
        setSurfaceType(type);
        if (type == QSurface::OpenGLSurface)
            setFormat(QtGlContext::format());
        setFlags(Qt::FramelessWindowHint | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus |
                 Qt::NoDropShadowWindowHint);
        setProperty(typeProperty, desktopType);
        setTitle(identity::name);
        setGeometry(screen.frame);
        create();
    }

Q_SIGNALS:
    void exposed();

protected:
    void exposeEvent(QExposeEvent* /*event*/) override
    {
        if (isExposed())
            Q_EMIT exposed();
    }

    /// Whoever wants the wallpaper gone asks the program. A task list that offers to close everything would
    /// leave a window that never shows anything again.
    void closeEvent(QCloseEvent* event) override { event->ignore(); }
};

class X11Window final : public X11WallpaperWindow
{
    Q_OBJECT

public:
    X11Window(const Screen& screen, Rasterizer rasterizer, const X11Surroundings& surroundings)
        : m_place(screen.pixels())
        , m_server(surroundings)
        , m_drawing(connectionOfQt())
        , m_surface(screen,
                    rasterizer == Rasterizer::software ? QSurface::RasterSurface : QSurface::OpenGLSurface)
        , m_window(static_cast<xcb_window_t>(m_surface.winId()))
        , m_canvas(makeCanvas(rasterizer))
        , m_stacking(m_server.connection, m_server.events, m_drawing, m_window, m_place)
        , m_icons(m_window, m_place)
    {
        // The other connection must not speak of a window that the server does not know yet.
        waitForServer(m_drawing);
        if (rasterizer == Rasterizer::software)
            leaveFramesUnsynchronized();
        static constexpr std::uint32_t events =
            XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
        X11Connection& connection = m_server.connection;
        xcb_change_window_attributes(connection.get(), m_window, XCB_CW_EVENT_MASK, &events);
        connection.setProperty(m_window, "_NET_WM_DESKTOP", XCB_ATOM_CARDINAL, {&everyWorkspace, 1});
        connection.sync();
        m_frames.setTimerType(Qt::PreciseTimer);
        connect(&m_frames, &QTimer::timeout, this, &WallpaperWindow::frameDue);
        connect(&m_surface, &Surface::exposed, this, &WallpaperWindow::contentLost);
        connect(&m_server.events, &X11Events::received, this, &X11Window::handle);
        connect(&m_server.occlusion, &X11Occlusion::changed, this, &X11Window::updatePace);
        connect(&m_server.power, &X11ScreenPower::changed, this, &X11Window::updatePace);
        connect(&m_stacking, &X11Stacking::desktopChanged, this,
                [this] { m_icons.watch(m_stacking.desktop(), m_behind); });
        connect(&m_stacking, &X11Stacking::refused, this, [this] {
            hide();
            show();
        });
    }

    ~X11Window() override { setWatchingPower(false); }

    [[nodiscard]] QSize pixelSize() const override { return m_place.size(); }

    Canvas canvas() override
    {
        return std::visit([](auto& canvas) -> Canvas { return canvas.get(); }, m_canvas);
    }

    void show() override
    {
        if (m_surface.isVisible())
            return;
        m_stacking.prepare();
        m_icons.watch(m_stacking.desktop(), m_behind);
        xcb_map_window(m_drawing, m_window);
        m_surface.show();
        m_stacking.follow();
        updatePace();
    }

    void hide() override
    {
        m_stacking.rest();
        m_surface.hide();
        m_icons.rest();
        if (auto* pixels = std::get_if<std::unique_ptr<X11PixelCanvas>>(&m_canvas))
            (*pixels)->releasePixels();
        updatePace();
    }

    void setFrameRate(int framesPerSecond) override
    {
        if (framesPerSecond == m_framesPerSecond)
            return;
        m_framesPerSecond = framesPerSecond;
        m_frames.stop();
        if (isSeen())
            startFrames();
    }

    void setPictureBehind(const QString& file) override
    {
        m_behind = file;
        if (m_surface.isVisible())
            m_icons.watch(m_stacking.desktop(), m_behind);
    }

private:
    using OwnedCanvas = std::variant<std::unique_ptr<X11GpuCanvas>, std::unique_ptr<X11PixelCanvas>>;

    OwnedCanvas makeCanvas(Rasterizer rasterizer)
    {
        if (rasterizer == Rasterizer::gpu)
            return std::make_unique<X11GpuCanvas>(m_surface);
        return std::make_unique<X11PixelCanvas>(m_drawing, m_surface, m_place.size(),
                                                m_server.connection.screen().root_depth);
    }

    /// Whether frames are wanted, and somebody sees them.
    bool isSeen()
    {
        const bool isWanted = m_framesPerSecond > 0 && m_surface.isVisible();
        setWatchingPower(isWanted);
        return isWanted && !m_server.power.isOff() && !m_server.occlusion.isCovered(m_place);
    }

    void startFrames()
    {
        // Rather one frame too few than one too many.
        m_frames.start((1000 + m_framesPerSecond - 1) / m_framesPerSecond);
    }

    /// Asks for frames from now on, or no longer, as it has become seen or not.
    void updatePace()
    {
        if (!isSeen()) {
            m_frames.stop();
        } else if (!m_frames.isActive()) {
            startFrames();
            Q_EMIT frameDue();
        }
    }

    void setWatchingPower(bool watching)
    {
        if (std::exchange(m_isWatchingPower, watching) == watching)
            return;
        if (watching)
            m_server.power.addWatcher();
        else
            m_server.power.removeWatcher();
    }

    /// Some window managers show nothing until a frame has been announced, which Qt does only for those that
    /// it draws itself.
    void leaveFramesUnsynchronized()
    {
        X11Connection& server = m_server.connection;
        xcb_delete_property(server.get(), m_window, server.atom("_NET_WM_SYNC_REQUEST_COUNTER"));
        std::vector<std::uint32_t> protocols = server.property(m_window, "WM_PROTOCOLS", XCB_ATOM_ATOM);
        std::erase(protocols, server.atom("_NET_WM_SYNC_REQUEST"));
        server.setProperty(m_window, "WM_PROTOCOLS", XCB_ATOM_ATOM, protocols);
    }

    void handle(const xcb_generic_event_t& event)
    {
        // In all of these the window that it is about stands at the same place.
        const int type = event.response_type & 0x7F;
        const auto& about = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
        if ((type == XCB_REPARENT_NOTIFY || type == XCB_MAP_NOTIFY || type == XCB_CONFIGURE_NOTIFY) &&
            about.window == m_window)
            letClicksThrough();
    }

    /// Qt makes the window itself transparent for input; the frame that the window manager has put around it
    /// would catch the clicks all the same.
    void letClicksThrough()
    {
        xcb_connection_t* const server = m_server.connection.get();
        xcb_shape_rectangles(server, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED,
                             outermost(m_server.connection, m_window), 0, 0, 0, nullptr);
        xcb_flush(server);
    }

    const QRect m_place; ///< among the pixels of the whole desktop
    const X11Surroundings m_server;
    xcb_connection_t* const m_drawing; ///< Qt's, so that fills and OpenGL come in order
    Surface m_surface;
    const xcb_window_t m_window;
    OwnedCanvas m_canvas;
    X11Stacking m_stacking;
    X11DesktopIcons m_icons;
    QTimer m_frames;
    int m_framesPerSecond = 0;
    bool m_isWatchingPower = false;
    QString m_behind; ///< the file of the desktop's picture
};

} // namespace

std::unique_ptr<X11WallpaperWindow> makeX11WallpaperWindow(const Screen& screen, Rasterizer rasterizer,
                                                           const X11Surroundings& surroundings)
{
    if (connectionOfQt() == nullptr || !surroundings.connection.isValid())
        return nullptr;
    return std::make_unique<X11Window>(screen, rasterizer, surroundings);
}

} // namespace tessel

#include "x11_wallpaper_window.moc"
