// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_desktop_icons.h"

#include "base/picture_limit.h"
#include "platform/linux/x11/icon_mask.h"
#include "platform/linux/x11/x11_connection.h"
#include "platform/process.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QImage>
#include <QImageReader>
#include <QTimer>

#include <algorithm>
#include <array>
#include <chrono>
#include <new>
#include <optional>
#include <xcb/composite.h>
#include <xcb/damage.h>
#include <xcb/shape.h>

namespace tessel {

namespace {

using namespace std::chrono_literals;

/// From a change until it is looked at, so that a burst of them is looked at once; and at least so many times
/// what a look takes.
constexpr auto pace = 40ms;
constexpr int breaks = 4;
/// Without a change, for so long, until a desktop that got another picture is taken to show it: some fade.
/// One with something on it that never stops moving is looked at all the same after a while.
constexpr auto quiet = 300ms;
constexpr auto patience = 2s;
/// Without a change, until the picture is forgotten: it can be tens of megabytes.
constexpr auto memory = 5s;

/// How much of a desktop icons can hide. Where more differs it shows another picture. Once it has been seen
/// to show ours, only a sudden change of more than that can mean another; a rubber band grows by and by.
constexpr double mostHidden = 0.25;
constexpr double mostHiddenAtOnce = 0.5;

/// The rows that are asked for at a time.
constexpr int bandHeight = 128;

bool hasExtensions(xcb_connection_t* server)
{
    return std::ranges::all_of(std::array{&xcb_composite_id, &xcb_damage_id, &xcb_shape_id},
                               [&](auto* id) { return hasExtension(server, *id); });
}

/// The server serves nobody who has not asked which version it speaks.
void agreeOnVersions(xcb_connection_t* server)
{
    const auto composite = xcb_composite_query_version(server, 0, 4);
    const auto damage = xcb_damage_query_version(server, 1, 1);
    static_cast<void>(readReply(xcb_composite_query_version_reply, server, composite));
    static_cast<void>(readReply(xcb_damage_query_version_reply, server, damage));
}

} // namespace

/// Compares the desktop's window with its picture whenever either changes.
class X11IconWatch : public QObject
{
    Q_OBJECT

public:
    X11IconWatch(xcb_window_t window, QRect place) : m_window(window), m_place(place), m_mask(place.size()) {}
    ~X11IconWatch() override { follow(XCB_WINDOW_NONE); }

    void watch(xcb_window_t desktop, const QString& file)
    {
        if (!m_server)
            connectToServer();
        if (!m_events)
            return;
        const bool isOtherDesktop = follow(desktop);
        const bool isOtherPicture = std::exchange(m_file, file) != file;
        if (desktop == XCB_WINDOW_NONE)
            cut();
        if (desktop == XCB_WINDOW_NONE || (!isOtherDesktop && !isOtherPicture))
            return;
        m_picture = {};
        suspectDesktop();
        m_pause.start(isOtherDesktop ? 0ms : quiet);
    }

    void rest() { follow(XCB_WINDOW_NONE); }

private:
    void connectToServer()
    {
        X11Connection& server = m_server.emplace();
        if (!server.isValid() || !hasExtensions(server.get()) ||
            xcb_get_setup(server.get())->bitmap_format_bit_order != XCB_IMAGE_ORDER_LSB_FIRST)
            return;
        agreeOnVersions(server.get());
        m_events.emplace(server);
        m_pause.setSingleShot(true);
        m_memory.setSingleShot(true);
        connect(&*m_events, &X11Events::received, this, &X11IconWatch::handle);
        connect(&m_pause, &QTimer::timeout, this, &X11IconWatch::look);
        connect(&m_memory, &QTimer::timeout, this, [this] { m_picture = {}; });
    }

    /// \return whether that is a window of which nothing is known yet
    bool follow(xcb_window_t desktop)
    {
        if (!m_events || desktop == m_desktop)
            return false;
        m_pause.stop();
        m_picture = {};
        xcb_connection_t* const server = m_server->get();
        if (m_desktop != XCB_WINDOW_NONE) {
            xcb_damage_destroy(server, m_damage);
            xcb_composite_unredirect_window(server, m_desktop, XCB_COMPOSITE_REDIRECT_AUTOMATIC);
        }
        m_desktop = desktop;
        m_mask = IconMask(m_place.size());
        if (m_desktop == XCB_WINDOW_NONE) {
            xcb_flush(server);
            return false;
        }
        // Where other windows lie over it there are pixels of it only if it is drawn aside.
        xcb_composite_redirect_window(server, m_desktop, XCB_COMPOSITE_REDIRECT_AUTOMATIC);
        m_damage = xcb_generate_id(server);
        xcb_damage_create(server, m_damage, m_desktop, XCB_DAMAGE_REPORT_LEVEL_BOUNDING_BOX);
        locate();
        return true;
    }

    /// Where the desktop's window is, which may have grown.
    void locate()
    {
        xcb_connection_t* const server = m_server->get();
        const auto geometryCookie = xcb_get_geometry(server, m_desktop);
        const auto originCookie = xcb_translate_coordinates(server, m_desktop, m_server->root(), 0, 0);
        const auto geometry = readReply(xcb_get_geometry_reply, server, geometryCookie);
        const auto origin = readReply(xcb_translate_coordinates_reply, server, originCookie);
        m_area = geometry == nullptr || origin == nullptr
                     ? QRect()
                     : QRect(origin->dst_x, origin->dst_y, geometry->width, geometry->height);
    }

    void handle(const xcb_generic_event_t& event)
    {
        const auto first = xcb_get_extension_data(m_server->get(), &xcb_damage_id)->first_event;
        if ((event.response_type & 0x7F) != first + XCB_DAMAGE_NOTIFY)
            return;
        const auto& change = reinterpret_cast<const xcb_damage_notify_event_t&>(event);
        if (change.damage != m_damage)
            return;
        xcb_damage_subtract(m_server->get(), m_damage, XCB_NONE, XCB_NONE);
        xcb_flush(m_server->get());
        const QRect area(change.area.x, change.area.y, change.area.width, change.area.height);
        m_changed |= area.translated(m_area.topLeft()) & m_place;
        if (m_changed.isEmpty())
            return;
        if (!m_pause.isActive() || (!m_isTrusted && !m_patience.hasExpired()))
            m_pause.start(m_isTrusted ? m_pace : quiet);
    }

    void look()
    {
        QElapsedTimer time;
        time.start();
        locate();
        m_memory.start(memory);
        if (agreesWithPicture())
            acceptDesktop();
        else
            suspectDesktop();
        m_pace =
            std::max<std::chrono::milliseconds>(pace, breaks * std::chrono::milliseconds(time.elapsed()));
    }

    bool agreesWithPicture()
    {
        try {
            return readPicture() && compare(m_changed & m_area) && isBelievable();
        } catch (const std::bad_alloc&) {
            return false; // the holes stay as they are
        }
    }

    [[nodiscard]] bool isBelievable() const
    {
        return m_mask.share() < (m_isTrusted ? m_share + mostHiddenAtOnce : mostHidden);
    }

    void acceptDesktop()
    {
        m_isTrusted = true;
        m_share = m_mask.share();
        m_changed = {};
        cut();
    }

    void suspectDesktop()
    {
        m_isTrusted = false;
        m_patience.setRemainingTime(patience);
        m_changed = m_place;
    }

    bool readPicture()
    {
        limitPictures();
        if (m_picture.isNull() && QImageReader(m_file).size() == m_place.size())
            m_picture = QImage(m_file);
        return !m_picture.isNull();
    }

    /// \return false if the desktop's window cannot be read
    bool compare(QRect part)
    {
        for (int y = part.top(); y <= part.bottom(); y += bandHeight) {
            const int rows = std::min(bandHeight, part.bottom() + 1 - y);
            if (!compareRows(QRect(part.left(), y, part.width(), rows)))
                return false;
        }
        return true;
    }

    bool compareRows(QRect rows)
    {
        static constexpr std::uint32_t everyPlane = ~0U;
        const QPoint from = rows.topLeft() - m_area.topLeft();
        const auto cookie = xcb_get_image(
            m_server->get(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_desktop, static_cast<std::int16_t>(from.x()),
            static_cast<std::int16_t>(from.y()), static_cast<std::uint16_t>(rows.width()),
            static_cast<std::uint16_t>(rows.height()), everyPlane);
        const auto reply = readReply(xcb_get_image_reply, m_server->get(), cookie);
        if (reply == nullptr || (reply->depth != 24 && reply->depth != 32))
            return false;
        const QImage shown(xcb_get_image_data(reply.get()), rows.width(), rows.height(),
                           qsizetype{4} * rows.width(), QImage::Format_RGB32);
        const QRect part = rows.translated(-m_place.topLeft());
        m_mask.compare(m_picture.copy(part).convertToFormat(QImage::Format_RGB32), shown, part.topLeft());
        return true;
    }

    /// Gives the window its shape.
    void cut()
    {
        std::vector<std::uint32_t> shape;
        if (m_mask.share() > 0)
            shape = m_mask.shapeAround();
        if (shape == m_shape)
            return;
        m_shape = std::move(shape);
        const xcb_pixmap_t pixels = m_shape.empty() ? xcb_pixmap_t{XCB_NONE} : uploadShape();
        xcb_shape_mask(m_server->get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, m_window, 0, 0, pixels);
        if (pixels != XCB_NONE)
            xcb_free_pixmap(m_server->get(), pixels);
        xcb_flush(m_server->get());
    }

    xcb_pixmap_t uploadShape()
    {
        xcb_connection_t* const server = m_server->get();
        const auto width = static_cast<std::uint16_t>(m_place.width());
        const auto height = static_cast<std::uint16_t>(m_place.height());
        const xcb_pixmap_t pixels = xcb_generate_id(server);
        xcb_create_pixmap(server, 1, pixels, m_window, width, height);
        const xcb_gcontext_t context = xcb_generate_id(server);
        xcb_create_gc(server, context, pixels, 0, nullptr);
        xcb_put_image(server, XCB_IMAGE_FORMAT_XY_PIXMAP, pixels, context, width, height, 0, 0, 0, 1,
                      static_cast<std::uint32_t>(m_shape.size() * sizeof m_shape.front()),
                      reinterpret_cast<const std::uint8_t*>(m_shape.data()));
        xcb_free_gc(server, context);
        return pixels;
    }

    const xcb_window_t m_window;
    const QRect m_place;
    std::optional<X11Connection> m_server;
    std::optional<X11Events> m_events; ///< there if the server can do all that is needed
    QTimer m_pause{this};              ///< until the desktop is looked at
    QTimer m_memory{this};
    xcb_window_t m_desktop = XCB_WINDOW_NONE;
    xcb_damage_damage_t m_damage = XCB_NONE;
    QRect m_area; ///< of the desktop's window, among all pixels
    QString m_file;
    QImage m_picture;         ///< the file's, while it is needed, in as few bytes as the file has
    bool m_isTrusted = false; ///< the desktop has been seen to show the picture
    double m_share = 0;       ///< that was hidden then
    QDeadlineTimer m_patience;
    std::chrono::milliseconds m_pace = pace;
    QRect m_changed; ///< since the last look, among all pixels
    IconMask m_mask;
    std::vector<std::uint32_t> m_shape; ///< that the window has; empty for none
};

X11DesktopIcons::X11DesktopIcons(xcb_window_t window, QRect place) : m_window(window), m_place(place) {}

X11DesktopIcons::~X11DesktopIcons() = default;

void X11DesktopIcons::watch(xcb_window_t desktop, const QString& picture)
{
    if (m_watch == nullptr) {
        if (desktop == XCB_WINDOW_NONE || picture.isEmpty())
            return;
        m_watch = new X11IconWatch(m_window, m_place);
        m_worker.emplace(QStringLiteral("icons"), lowerThreadPriority);
        m_worker->adopt(m_watch);
    }
    m_worker->run([watch = m_watch, desktop, picture] { watch->watch(desktop, picture); });
}

void X11DesktopIcons::rest()
{
    if (m_watch != nullptr)
        m_worker->run([watch = m_watch] { watch->rest(); });
}

} // namespace tessel

#include "x11_desktop_icons.moc"
