// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_desktop_owner.h"

#include "platform/linux/x11/x11_connection.h"

#include <QRect>

#include <algorithm>
#include <unistd.h>

namespace tessel {

namespace {

/// The windows of programs: as the window manager lists them, and those that have no frame around them.
std::vector<xcb_window_t> windows(X11Connection& connection)
{
    std::vector<xcb_window_t> all =
        connection.property(connection.root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW);
    const XcbPointer<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection.get(), xcb_query_tree(connection.get(), connection.root()), nullptr));
    if (tree != nullptr) {
        const xcb_window_t* children = xcb_query_tree_children(tree.get());
        all.insert(all.end(), children, children + xcb_query_tree_children_length(tree.get()));
    }
    return all;
}

/// Those that want to lie below all others. All are asked at once: there can be hundreds.
std::vector<xcb_window_t> desktopWindows(X11Connection& connection, const std::vector<xcb_window_t>& all)
{
    const xcb_atom_t property = connection.atom("_NET_WM_WINDOW_TYPE");
    const xcb_atom_t desktop = connection.atom("_NET_WM_WINDOW_TYPE_DESKTOP");
    std::vector<xcb_get_property_cookie_t> cookies;
    cookies.reserve(all.size());
    for (const xcb_window_t window : all)
        cookies.push_back(xcb_get_property(connection.get(), 0, window, property, XCB_ATOM_ATOM, 0, 1));
    std::vector<xcb_window_t> found;
    for (std::size_t i = 0; i < all.size(); ++i) {
        const XcbPointer<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(connection.get(), cookies[i], nullptr));
        if (reply != nullptr && reply->format == 32 && reply->value_len == 1 &&
            *static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get())) == desktop)
            found.push_back(all[i]);
    }
    return found;
}

bool isOurs(X11Connection& connection, xcb_window_t window)
{
    const auto process = connection.property(window, "_NET_WM_PID", XCB_ATOM_CARDINAL);
    return !process.empty() && process.front() == static_cast<std::uint32_t>(getpid());
}

/// Large enough for the background of a monitor among others.
bool isBackground(X11Connection& connection, xcb_window_t window)
{
    const XcbPointer<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        connection.get(), xcb_get_window_attributes(connection.get(), window), nullptr));
    const XcbPointer<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection.get(), xcb_get_geometry(connection.get(), window), nullptr));
    const XcbPointer<xcb_get_geometry_reply_t> root(xcb_get_geometry_reply(
        connection.get(), xcb_get_geometry(connection.get(), connection.root()), nullptr));
    return attributes != nullptr && geometry != nullptr && root != nullptr &&
           attributes->map_state != XCB_MAP_STATE_UNMAPPED && geometry->width * 4 >= root->width &&
           geometry->height * 4 >= root->height;
}

bool contains(X11Connection& connection, xcb_window_t window, QPoint pixel)
{
    const XcbPointer<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection.get(), xcb_get_geometry(connection.get(), window), nullptr));
    const XcbPointer<xcb_translate_coordinates_reply_t> origin(xcb_translate_coordinates_reply(
        connection.get(), xcb_translate_coordinates(connection.get(), window, connection.root(), 0, 0),
        nullptr));
    return geometry != nullptr && origin != nullptr &&
           QRect(origin->dst_x, origin->dst_y, geometry->width, geometry->height).contains(pixel);
}

std::string className(X11Connection& connection, xcb_window_t window)
{
    // Two names, each ended by a zero: that of the window and that of its class.
    const std::string names = connection.text(window, "WM_CLASS", XCB_ATOM_STRING);
    const std::size_t first = std::min(names.find('\0'), names.size() - 1);
    const std::string second = names.substr(first + 1);
    return second.substr(0, second.find('\0'));
}

} // namespace

std::optional<std::string> desktopOwner(X11Connection& connection)
{
    for (const xcb_window_t window : desktopWindows(connection, windows(connection)))
        if (!isOurs(connection, window) && isBackground(connection, window))
            return className(connection, window);
    return std::nullopt;
}

xcb_window_t desktopWindowAt(X11Connection& connection, QPoint pixel)
{
    const std::vector<xcb_window_t> fromBelow = stackedWindows(connection);
    xcb_window_t uppermost = XCB_WINDOW_NONE;
    for (const xcb_window_t window : desktopWindows(connection, fromBelow))
        if (!isOurs(connection, window) && isBackground(connection, window) &&
            contains(connection, window, pixel))
            uppermost = window;
    return uppermost;
}

std::vector<xcb_window_t> stackedWindows(X11Connection& connection)
{
    return connection.property(connection.root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW);
}

} // namespace tessel
