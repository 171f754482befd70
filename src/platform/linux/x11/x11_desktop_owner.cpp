// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_desktop_owner.h"

#include <algorithm>
#include <chrono>
#include <unistd.h>
#include <utility>

namespace tessel {

namespace {

/// Programs open and close several windows at once.
constexpr std::chrono::milliseconds lookingPace{500};

/// The windows of programs: those that have no frame around them, then as the window manager lists them.
std::vector<xcb_window_t> withListed(X11Connection& connection, const std::vector<xcb_window_t>& listed)
{
    std::vector<xcb_window_t> all = childrenOf(connection, connection.root());
    all.insert(all.end(), listed.begin(), listed.end());
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
        const auto reply = readReply(xcb_get_property_reply, connection.get(), cookies[i]);
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

/// Whether a window is large enough for the background of a monitor.
bool isBackground(const QRect& window, const QRect& monitor)
{
    return window.contains(monitor.center()) && window.width() * 4 >= monitor.width() &&
           window.height() * 4 >= monitor.height();
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
    std::vector<QRect> monitors = monitorPlaces(connection);
    if (monitors.empty())
        monitors.emplace_back(0, 0, connection.screen().width_in_pixels,
                              connection.screen().height_in_pixels);
    const auto listed = connection.property(connection.root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW);
    for (const xcb_window_t window : desktopWindows(connection, withListed(connection, listed))) {
        const std::optional<QRect> place = placeOf(connection, window);
        const auto isBehind = [&place](const QRect& monitor) { return isBackground(*place, monitor); };
        if (place && !isOurs(connection, window) && std::ranges::any_of(monitors, isBehind))
            return className(connection, window);
    }
    return std::nullopt;
}

xcb_window_t desktopWindowAt(X11Connection& connection, const QRect& monitor)
{
    xcb_window_t uppermost = XCB_WINDOW_NONE;
    for (const xcb_window_t window :
         desktopWindows(connection, withListed(connection, stackedWindows(connection)))) {
        const std::optional<QRect> place = placeOf(connection, window);
        if (place && !isOurs(connection, window) && isBackground(*place, monitor))
            uppermost = window;
    }
    return uppermost;
}

std::vector<xcb_window_t> stackedWindows(X11Connection& connection)
{
    return connection.property(connection.root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW);
}

X11DesktopOwnerWatch::X11DesktopOwnerWatch()
{
    if (!m_connection.isValid())
        return;
    // Desktops that the window manager does not list still tell of their picture there.
    static constexpr std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection.get(), m_connection.root(), XCB_CW_EVENT_MASK, &events);
    m_looking.setSingleShot(true);
    m_looking.setInterval(lookingPace);
    connect(&m_looking, &QTimer::timeout, this, &X11DesktopOwnerWatch::look);
    m_owner = desktopOwner(m_connection);
    m_events = std::make_unique<X11Events>(m_connection);
    connect(m_events.get(), &X11Events::received, this, &X11DesktopOwnerWatch::handle);
}

X11DesktopOwnerWatch::~X11DesktopOwnerWatch() = default;

void X11DesktopOwnerWatch::handle(const xcb_generic_event_t& event)
{
    if ((event.response_type & 0x7F) != XCB_PROPERTY_NOTIFY)
        return;
    const xcb_atom_t property = reinterpret_cast<const xcb_property_notify_event_t&>(event).atom;
    const bool isPicture = property == m_connection.atom("_XROOTPMAP_ID");
    if (isPicture)
        Q_EMIT pictureChanged();
    if ((isPicture || property == m_connection.atom("_NET_CLIENT_LIST")) && !m_looking.isActive())
        m_looking.start();
}

void X11DesktopOwnerWatch::look()
{
    const std::optional<std::string> owner = desktopOwner(m_connection);
    if (owner != std::exchange(m_owner, owner))
        Q_EMIT changed();
}

} // namespace tessel
