// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/identity.h"
#include "platform/desktop_window.h"
#include "platform/gl_context.h"
#include "platform/linux/x11/x11_backdrop.h"
#include "platform/linux/x11/x11_connection.h"
#include "platform/linux/x11/x11_desktop_icons.h"
#include "platform/linux/x11/x11_shared_memory.h"
#include "platform/linux/x11/x11_stacking.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <array>
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
};

class X11DesktopWindow : public DesktopWindow
{
    Q_OBJECT

public:
    X11DesktopWindow(const Screen& screen, GlContext& context)
        : m_place(screen.pixels())
        , m_context(context)
        , m_drawing(connectionOfQt())
        , m_events(m_connection)
        , m_surface(screen, context.isSoftware() ? QSurface::RasterSurface : QSurface::OpenGLSurface)
        , m_window(static_cast<xcb_window_t>(m_surface.winId()))
        , m_graphics(xcb_generate_id(m_drawing))
        , m_stacking(m_connection, m_events, m_drawing, m_window, m_place)
        , m_icons(m_window, m_place)
    {
        static constexpr std::uint32_t noExposures = 0;
        xcb_create_gc(m_drawing, m_graphics, m_window, XCB_GC_GRAPHICS_EXPOSURES, &noExposures);
        resizeToPixels();
        // The other connection must not speak of a window that the server does not know yet.
        waitForServer();
        if (context.isSoftware())
            leaveFramesUnsynchronized();
        static constexpr std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection.get(), m_window, XCB_CW_EVENT_MASK, &events);
        m_connection.setProperty(m_window, "_NET_WM_DESKTOP", XCB_ATOM_CARDINAL, {&everyWorkspace, 1});
        m_connection.sync();
        connect(&m_surface, &Surface::exposed, this, &DesktopWindow::exposed);
        connect(&m_events, &X11Events::received, this, &X11DesktopWindow::handle);
        connect(&m_stacking, &X11Stacking::desktopChanged, this,
                [this] { m_icons.watch(m_stacking.desktop(), m_behind); });
        connect(&m_stacking, &X11Stacking::refused, this, [this] {
            hide();
            show();
        });
    }

    ~X11DesktopWindow() override { xcb_free_gc(m_drawing, m_graphics); }

    QSize pixelSize() const override { return m_place.size(); }

    void show() override
    {
        if (m_surface.isVisible())
            return;
        m_stacking.prepare();
        m_icons.watch(m_stacking.desktop(), m_behind);
        xcb_map_window(m_drawing, m_window);
        m_surface.show();
        m_stacking.follow();
    }

    void hide() override
    {
        m_stacking.rest();
        m_surface.hide();
        m_icons.rest();
    }

    void setPictureBehind(const QString& file) override
    {
        m_behind = file;
        if (m_surface.isVisible())
            m_icons.watch(m_stacking.desktop(), m_behind);
    }

    bool makeCurrent() override
    {
        if (!m_surface.isExposed())
            return false;
        if (!m_context.isSoftware())
            return m_context.makeCurrent(m_surface);
        m_context.makeCurrent();
        return true;
    }

    void swap() override { m_context.swap(m_surface); }

    std::uint32_t* pixels() override
    {
        if (m_image.isNull())
            makeImage();
        else if (m_shared != nullptr)
            waitForServer();
        return reinterpret_cast<std::uint32_t*>(m_image.bits());
    }

    void showPixels() override
    {
        if (m_shared == nullptr) {
            putImage(m_drawing, m_window, m_graphics, m_depth, m_image, {});
        } else {
            const auto width = static_cast<std::uint16_t>(m_place.width());
            const auto height = static_cast<std::uint16_t>(m_place.height());
            xcb_shm_put_image(m_drawing, m_window, m_graphics, width, height, 0, 0, width, height, 0, 0,
                              m_depth, XCB_IMAGE_FORMAT_Z_PIXMAP, 0, m_shared->segment(), 0);
        }
        flush();
    }

    void releasePixels() override
    {
        m_image = {};
        m_shared.reset();
    }

    void fill(std::uint32_t color, std::span<const PixelRect> rectangles) override
    {
        static_assert(sizeof(PixelRect) == sizeof(xcb_rectangle_t));
        // What one request may hold without any extension.
        static constexpr std::size_t most = 8000;
        xcb_change_gc(m_drawing, m_graphics, XCB_GC_FOREGROUND, &color);
        while (!rectangles.empty()) {
            const auto part = rectangles.first(std::min(rectangles.size(), most));
            xcb_poly_fill_rectangle(m_drawing, m_window, m_graphics, static_cast<std::uint32_t>(part.size()),
                                    reinterpret_cast<const xcb_rectangle_t*>(part.data()));
            rectangles = rectangles.subspan(part.size());
        }
    }

    void flush() override { xcb_flush(m_drawing); }

    std::function<void(const QImage&)> backdropSetter() const override
    {
        return [window = m_window](const QImage& picture) { setWindowBackdrop(window, picture); };
    }

private:
    /// Points are whole numbers: at a fractional scale Qt's window can be a pixel larger than the monitor.
    void resizeToPixels()
    {
        const std::array size{static_cast<std::uint32_t>(m_place.width()),
                              static_cast<std::uint32_t>(m_place.height())};
        xcb_configure_window(m_drawing, m_window, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                             size.data());
    }

    /// Some window managers show nothing until a frame has been announced, which Qt does only for those that
    /// it draws itself.
    void leaveFramesUnsynchronized()
    {
        xcb_delete_property(m_connection.get(), m_window, m_connection.atom("_NET_WM_SYNC_REQUEST_COUNTER"));
        std::vector<std::uint32_t> protocols = m_connection.property(m_window, "WM_PROTOCOLS", XCB_ATOM_ATOM);
        std::erase(protocols, m_connection.atom("_NET_WM_SYNC_REQUEST"));
        m_connection.setProperty(m_window, "WM_PROTOCOLS", XCB_ATOM_ATOM, protocols);
    }

    void makeImage()
    {
        const auto bytes =
            static_cast<std::size_t>(m_place.width()) * static_cast<std::size_t>(m_place.height()) * 4U;
        m_shared = X11SharedMemory::make(m_drawing, bytes);
        m_image = m_shared == nullptr ? QImage(m_place.size(), QImage::Format_RGB32)
                                      : QImage(static_cast<uchar*>(m_shared->bytes()), m_place.width(),
                                               m_place.height(), QImage::Format_RGB32);
    }

    /// Until it has read what it shares with us, and knows what it was told before.
    void waitForServer()
    {
        const XcbPointer<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(m_drawing, xcb_get_input_focus(m_drawing), nullptr));
    }

    void handle(const xcb_generic_event_t& event)
    {
        const int type = event.response_type & 0x7F;
        if (type == XCB_REPARENT_NOTIFY || type == XCB_MAP_NOTIFY || type == XCB_CONFIGURE_NOTIFY)
            letClicksThrough();
    }

    /// Qt makes the window itself transparent for input; the frame that the window manager has put around it
    /// would catch the clicks all the same.
    void letClicksThrough()
    {
        const xcb_window_t frame = outermost(m_connection, m_window);
        xcb_shape_rectangles(m_connection.get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT,
                             XCB_CLIP_ORDERING_UNSORTED, frame, 0, 0, 0, nullptr);
        xcb_flush(m_connection.get());
    }

    const QRect m_place; ///< among the pixels of the whole desktop
    GlContext& m_context;
    xcb_connection_t* const m_drawing; ///< Qt's, so that fills and OpenGL come in order
    X11Connection m_connection;
    X11Events m_events;
    Surface m_surface;
    const xcb_window_t m_window;
    const xcb_gcontext_t m_graphics;
    const std::uint8_t m_depth = m_connection.screen().root_depth;
    X11Stacking m_stacking;
    X11DesktopIcons m_icons;
    QString m_behind;                          ///< the file of the desktop's picture
    std::unique_ptr<X11SharedMemory> m_shared; ///< nullptr where the server is on another machine
    QImage m_image;                            ///< in the shared memory if there is any
};

} // namespace

std::unique_ptr<DesktopWindow> makeDesktopWindow(const Screen& screen, GlContext& context)
{
    if (connectionOfQt() == nullptr)
        return nullptr;
    return std::make_unique<X11DesktopWindow>(screen, context);
}

} // namespace tessel

#include "x11_desktop_window.moc"
