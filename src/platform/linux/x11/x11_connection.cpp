// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_connection.h"

#include <QAbstractEventDispatcher>
#include <QImage>
#include <QPoint>
#include <QSocketNotifier>

#include <algorithm>
#include <xcb/randr.h>

namespace tessel {

namespace {

/// What stands for the screen while there is no server.
constexpr xcb_screen_t noScreen{};

const xcb_screen_t* screenNumbered(const xcb_setup_t* setup, int number)
{
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(setup);
    for (; screens.rem > 1 && number > 0; --number)
        xcb_screen_next(&screens);
    return screens.data;
}

} // namespace

QImage inFormatOf(std::uint8_t depth, const QImage& picture)
{
    return depth == deepColorDepth ? picture.convertToFormat(QImage::Format_RGB30) : picture;
}

void putImage(xcb_connection_t* connection, xcb_drawable_t drawable, xcb_gcontext_t context,
              std::uint8_t depth, const QImage& picture, QPoint to)
{
    // In bands: a request is limited in size.
    const auto bytesPerRow = static_cast<std::uint32_t>(picture.width()) * 4U;
    const std::uint32_t room = xcb_get_maximum_request_length(connection) * 4U - 64U;
    const int band = std::max(static_cast<int>(room / std::max(bytesPerRow, 1U)), 1);
    for (int y = 0; y < picture.height(); y += band) {
        const int rows = std::min(band, picture.height() - y);
        xcb_put_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, drawable, context,
                      static_cast<std::uint16_t>(picture.width()), static_cast<std::uint16_t>(rows),
                      static_cast<std::int16_t>(to.x()), static_cast<std::int16_t>(to.y() + y), 0, depth,
                      bytesPerRow * static_cast<std::uint32_t>(rows), picture.constScanLine(y));
    }
}

X11Connection::X11Connection()
{
    m_connection.reset(xcb_connect(nullptr, &m_screenNumber));
    if (isValid())
        m_screen = screenNumbered(xcb_get_setup(get()), m_screenNumber);
}

const xcb_screen_t& X11Connection::screen() const
{
    return m_screen != nullptr ? *m_screen : noScreen;
}

bool X11Connection::isValid() const
{
    return xcb_connection_has_error(get()) == 0;
}

xcb_atom_t X11Connection::atom(const std::string& name)
{
    const auto found = m_atoms.find(name);
    if (found != m_atoms.end())
        return found->second;
    const auto cookie = xcb_intern_atom(get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    const auto reply = readReply(xcb_intern_atom_reply, get(), cookie);
    if (reply == nullptr)
        return XCB_ATOM_NONE;
    return m_atoms.emplace(name, reply->atom).first->second;
}

xcb_get_property_cookie_t askProperty(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t name,
                                      xcb_atom_t type)
{
    static constexpr std::uint32_t longest = 1U << 16U;
    return xcb_get_property(connection, 0, window, name, type, 0, longest);
}

std::vector<std::uint32_t> readProperty(xcb_connection_t* connection, xcb_get_property_cookie_t cookie)
{
    const auto reply = readReply(xcb_get_property_reply, connection, cookie);
    if (reply == nullptr || reply->format != 32)
        return {};
    const auto* items = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {items, items + reply->value_len};
}

std::vector<std::uint32_t> X11Connection::property(xcb_window_t window, const std::string& name,
                                                   xcb_atom_t type)
{
    return readProperty(get(), askProperty(get(), window, atom(name), type));
}

std::string X11Connection::text(xcb_window_t window, const std::string& name, xcb_atom_t type)
{
    static constexpr std::uint32_t longest = 16384;
    const auto cookie = xcb_get_property(get(), 0, window, atom(name), type, 0, longest);
    const auto reply = readReply(xcb_get_property_reply, get(), cookie);
    if (reply == nullptr || reply->format != 8)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

void X11Connection::setProperty(xcb_window_t window, const std::string& name, xcb_atom_t type,
                                std::span<const std::uint32_t> items)
{
    xcb_change_property(get(), XCB_PROP_MODE_REPLACE, window, atom(name), type, 32,
                        static_cast<std::uint32_t>(items.size()), items.data());
}

void X11Connection::listenToRoot(std::uint32_t events)
{
    m_rootEvents |= events;
    xcb_change_window_attributes(get(), root(), XCB_CW_EVENT_MASK, &m_rootEvents);
    xcb_flush(get());
}

void X11Connection::put(xcb_drawable_t drawable, const QImage& picture, QPoint to)
{
    const xcb_gcontext_t context = xcb_generate_id(get());
    xcb_create_gc(get(), context, drawable, 0, nullptr);
    putImage(get(), drawable, context, screen().root_depth, picture, to);
    xcb_free_gc(get(), context);
}

bool hasExtension(xcb_connection_t* connection, xcb_extension_t& extension)
{
    const xcb_query_extension_reply_t* reply = xcb_get_extension_data(connection, &extension);
    return reply != nullptr && reply->present != 0;
}

std::vector<QRect> monitorPlaces(const X11Connection& connection)
{
    // Without the extension the server would hear nothing from us any more.
    if (!hasExtension(connection.get(), xcb_randr_id))
        return {};
    const auto reply = readReply(xcb_randr_get_monitors_reply, connection.get(),
                                 xcb_randr_get_monitors(connection.get(), connection.root(), 1));
    std::vector<QRect> monitors;
    if (reply != nullptr)
        for (auto each = xcb_randr_get_monitors_monitors_iterator(reply.get()); each.rem > 0;
             xcb_randr_monitor_info_next(&each))
            monitors.emplace_back(each.data->x, each.data->y, each.data->width, each.data->height);
    return monitors;
}

std::vector<xcb_window_t> childrenOf(const X11Connection& connection, xcb_window_t window)
{
    const auto tree =
        readReply(xcb_query_tree_reply, connection.get(), xcb_query_tree(connection.get(), window));
    if (tree == nullptr)
        return {};
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    return {children, children + xcb_query_tree_children_length(tree.get())};
}

xcb_window_t outermost(const X11Connection& connection, xcb_window_t window)
{
    while (true) {
        const auto tree =
            readReply(xcb_query_tree_reply, connection.get(), xcb_query_tree(connection.get(), window));
        if (tree == nullptr || tree->parent == tree->root || tree->parent == XCB_WINDOW_NONE)
            return window;
        window = tree->parent;
    }
}

std::optional<QRect> placeOf(const X11Connection& connection, xcb_window_t window)
{
    const auto attributesCookie = xcb_get_window_attributes(connection.get(), window);
    const auto geometryCookie = xcb_get_geometry(connection.get(), window);
    const auto originCookie = xcb_translate_coordinates(connection.get(), window, connection.root(), 0, 0);
    const auto attributes = readReply(xcb_get_window_attributes_reply, connection.get(), attributesCookie);
    const auto geometry = readReply(xcb_get_geometry_reply, connection.get(), geometryCookie);
    const auto origin = readReply(xcb_translate_coordinates_reply, connection.get(), originCookie);
    if (attributes == nullptr || geometry == nullptr || origin == nullptr ||
        attributes->map_state == XCB_MAP_STATE_UNMAPPED || attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY)
        return std::nullopt;
    return QRect(origin->dst_x, origin->dst_y, geometry->width, geometry->height);
}

void waitForServer(xcb_connection_t* connection)
{
    static_cast<void>(readReply(xcb_get_input_focus_reply, connection, xcb_get_input_focus(connection)));
}

X11Events::X11Events(X11Connection& connection) : m_connection(connection)
{
    if (!connection.isValid())
        return;
    m_notifier = new QSocketNotifier(xcb_get_file_descriptor(connection.get()), QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &X11Events::drain);
    // What has come while a reply was waited for makes the socket no longer readable.
    const QAbstractEventDispatcher* loop = QAbstractEventDispatcher::instance();
    connect(loop, &QAbstractEventDispatcher::aboutToBlock, this, &X11Events::tellQueued);
    connect(loop, &QAbstractEventDispatcher::awake, this, &X11Events::tellQueued);
}

void X11Events::drain()
{
    while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())})
        Q_EMIT received(*event);
    if (!m_connection.isValid())
        m_notifier->setEnabled(false);
    Q_EMIT drained();
}

void X11Events::tellQueued()
{
    while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_queued_event(m_connection.get())})
        Q_EMIT received(*event);
}

} // namespace tessel
