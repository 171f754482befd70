// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/desktops/root_pictures.h"

#include "platform/linux/desktops/picture_file.h"
#include "platform/linux/x11/x11_connection.h"
#include "platform/linux/x11/x11_upload.h"

#include <QCryptographicHash>
#include <QImage>
#include <QRandomGenerator>
#include <QtEndian>

#include <algorithm>
#include <array>

namespace tessel {

namespace {

/// What one monitor shows, in 32-bit items: x, y, width and height of its pixels and a hash of its file's
/// name.
using Shown = std::array<std::uint32_t, 6>;

Shown shown(const DesktopPicture& picture)
{
    const QRect place = picture.screen.pixels();
    const QByteArray hash = QCryptographicHash::hash(picture.file.toUtf8(), QCryptographicHash::Sha1);
    return {
        static_cast<std::uint32_t>(place.x()),           static_cast<std::uint32_t>(place.y()),
        static_cast<std::uint32_t>(place.width()),       static_cast<std::uint32_t>(place.height()),
        qFromBigEndian<std::uint32_t>(hash.constData()), qFromBigEndian<std::uint32_t>(hash.constData() + 4)};
}

QRect placeOf(const Shown& one)
{
    return {static_cast<int>(one[0]), static_cast<int>(one[1]), static_cast<int>(one[2]),
            static_cast<int>(one[3])};
}

/// The root window's background as programs agree on it.
class RootBackground
{
public:
    explicit RootBackground(X11Connection& connection) : m_connection(connection)
    {
        const xcb_pixmap_t old = pixmapNamed(pixmapProperty);
        m_size = sizeOf(connection.root());
        if (old != XCB_NONE && isPixmap(old)) {
            m_pixmap = old;
            readShown();
        }
    }

    [[nodiscard]] QSize size() const { return m_size; }
    [[nodiscard]] const std::vector<Shown>& shown() const { return m_shown; }
    [[nodiscard]] bool fits() const { return m_pixmap != XCB_NONE && sizeOf(m_pixmap) == m_size; }

    /// A pixmap of the root window's size that begins as a copy of the background, with black where there is
    /// none. \return XCB_NONE if there is no memory for it
    xcb_pixmap_t copy()
    {
        xcb_connection_t* const x = m_connection.get();
        const auto width = static_cast<std::uint16_t>(m_size.width());
        const auto height = static_cast<std::uint16_t>(m_size.height());
        const xcb_pixmap_t pixmap = unusualId();
        const auto cookie = xcb_create_pixmap_checked(x, m_connection.screen().root_depth, pixmap,
                                                      m_connection.root(), width, height);
        if (const XcbPointer<xcb_generic_error_t> error{xcb_request_check(x, cookie)})
            return XCB_NONE;
        const xcb_gcontext_t context = xcb_generate_id(x);
        const std::array<std::uint32_t, 2> values{m_connection.screen().black_pixel, 0};
        xcb_create_gc(x, context, pixmap, XCB_GC_FOREGROUND | XCB_GC_GRAPHICS_EXPOSURES, values.data());
        const xcb_rectangle_t everything{0, 0, width, height};
        xcb_poly_fill_rectangle(x, pixmap, context, 1, &everything);
        if (const QSize old = sizeOf(m_pixmap); !old.isEmpty())
            xcb_copy_area(x, m_pixmap, pixmap, context, 0, 0, 0, 0, static_cast<std::uint16_t>(old.width()),
                          static_cast<std::uint16_t>(old.height()));
        xcb_free_gc(x, context);
        return pixmap;
    }

    /// Shows the pixmap, and lets it outlive this connection. The one before is freed.
    void replace(xcb_pixmap_t pixmap, const std::vector<Shown>& shown)
    {
        xcb_connection_t* const x = m_connection.get();
        // By custom one that stands in both properties was left behind to be freed by the next program.
        const bool isLeftBehind = m_pixmap != XCB_NONE && pixmapNamed(ownerProperty) == m_pixmap;
        std::vector<std::uint32_t> items{pixmap};
        for (const Shown& one : shown)
            items.insert(items.end(), one.begin(), one.end());
        xcb_grab_server(x);
        m_connection.setProperty(m_connection.root(), ourProperty, XCB_ATOM_CARDINAL, items);
        for (const char* name : {pixmapProperty, ownerProperty})
            m_connection.setProperty(m_connection.root(), name, XCB_ATOM_PIXMAP, {&pixmap, 1});
        xcb_change_window_attributes(x, m_connection.root(), XCB_CW_BACK_PIXMAP, &pixmap);
        xcb_clear_area(x, 0, m_connection.root(), 0, 0, 0, 0);
        xcb_set_close_down_mode(x, XCB_CLOSE_DOWN_RETAIN_PERMANENT);
        if (isLeftBehind)
            xcb_kill_client(x, m_pixmap);
        xcb_ungrab_server(x);
        m_connection.sync();
    }

private:
    static constexpr const char* pixmapProperty = "_XROOTPMAP_ID";
    static constexpr const char* ownerProperty = "ESETROOT_PMAP_ID";
    static constexpr const char* ourProperty = "_TESSEL_BROTH_PICTURES";

    xcb_pixmap_t pixmapNamed(const char* name)
    {
        const std::vector<std::uint32_t> items =
            m_connection.property(m_connection.root(), name, XCB_ATOM_PIXMAP);
        return items.empty() ? xcb_pixmap_t{XCB_NONE} : items.front();
    }

    /// Identifiers come back once their owner is gone: one that the next program's pixmap is unlikely to get,
    /// so that it is not taken for ours.
    [[nodiscard]] xcb_pixmap_t unusualId() const
    {
        for (std::uint32_t i = QRandomGenerator::global()->bounded(64U, 4096U); i > 0; --i)
            xcb_generate_id(m_connection.get());
        return xcb_generate_id(m_connection.get());
    }

    [[nodiscard]] XcbPointer<xcb_get_geometry_reply_t> geometry(xcb_drawable_t drawable) const
    {
        const auto cookie = xcb_get_geometry(m_connection.get(), drawable);
        return readReply(xcb_get_geometry_reply, m_connection.get(), cookie);
    }

    /// Nothing if there is no such drawable.
    [[nodiscard]] QSize sizeOf(xcb_drawable_t drawable) const
    {
        const auto found = geometry(drawable);
        return found == nullptr ? QSize() : QSize(found->width, found->height);
    }

    /// Whether it still exists, and is no window of somebody who was given the same number later.
    [[nodiscard]] bool isPixmap(xcb_drawable_t drawable) const
    {
        const auto found = geometry(drawable);
        const auto cookie = xcb_get_window_attributes(m_connection.get(), drawable);
        const auto window = readReply(xcb_get_window_attributes_reply, m_connection.get(), cookie);
        return found != nullptr && window == nullptr && found->depth == m_connection.screen().root_depth;
    }

    void readShown()
    {
        const std::vector<std::uint32_t> items =
            m_connection.property(m_connection.root(), ourProperty, XCB_ATOM_CARDINAL);
        if (items.empty() || items.front() != m_pixmap)
            return;
        constexpr std::size_t each = std::tuple_size_v<Shown>;
        // What a smaller root window has cut off is gone.
        const QRect kept(QPoint(), sizeOf(m_pixmap).boundedTo(m_size));
        for (std::size_t at = 1; at + each <= items.size(); at += each) {
            Shown one{};
            std::copy_n(items.begin() + static_cast<std::ptrdiff_t>(at), each, one.begin());
            if (kept.contains(placeOf(one)))
                m_shown.push_back(one);
        }
    }

    X11Connection& m_connection;
    QSize m_size;
    xcb_pixmap_t m_pixmap = XCB_NONE;
    std::vector<Shown> m_shown;
};

/// Takes out the pictures that are shown already.
void removeShown(std::vector<DesktopPicture>& pictures, const std::vector<Shown>& known)
{
    std::erase_if(pictures, [&known](const DesktopPicture& picture) {
        return std::find(known.begin(), known.end(), shown(picture)) != known.end();
    });
}

} // namespace

QStringList RootPictures::apply(const std::vector<DesktopPicture>& pictures, Which which)
{
    X11Connection connection;
    if (!connection.isValid())
        //: "it" is the desktop; behind a colon
        return refusals(pictures, DesktopPictures::tr("it is not running any more."));
    const int depth = connection.screen().root_depth;
    if (depth != 24 && depth != 30 && depth != 32)
        //: "it" is the desktop; behind a colon
        return refusals(pictures, DesktopPictures::tr("it shows too few colours."));
    RootBackground background(connection);
    std::vector<DesktopPicture> wanted = pictures;
    if (which == Which::different)
        removeShown(wanted, background.shown());
    if (wanted.empty() && background.fits())
        return {};

    const xcb_pixmap_t pixmap = background.copy();
    if (pixmap == XCB_NONE)
        return refusals(wanted, DesktopPictures::tr("the X server has no memory for it."));
    QStringList failures;
    std::vector<Shown> nowShown = background.shown();
    for (const DesktopPicture& picture : wanted) {
        QString problem;
        const QImage image = readPicture(picture, problem);
        if (image.isNull()) {
            failures << refusal(picture, problem);
            continue;
        }
        upload(connection, pixmap, image, picture.screen.pixels().topLeft());
        const QRect place = picture.screen.pixels();
        std::erase_if(nowShown, [&place](const Shown& old) { return placeOf(old).intersects(place); });
        nowShown.push_back(shown(picture));
    }
    background.replace(pixmap, nowShown);
    if (!connection.isValid())
        //: "it" is the desktop; behind a colon
        return refusals(wanted, DesktopPictures::tr("it is not running any more."));
    return failures;
}

bool RootPictures::shows(const std::vector<DesktopPicture>& pictures)
{
    X11Connection connection;
    if (!connection.isValid())
        return true;
    std::vector<DesktopPicture> others = pictures;
    removeShown(others, RootBackground(connection).shown());
    return others.empty();
}

} // namespace tessel
