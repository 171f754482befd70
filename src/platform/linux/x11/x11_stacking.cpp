// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_stacking.h"

#include "platform/linux/x11/x11_connection.h"
#include "platform/linux/x11/x11_desktop_owner.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace tessel {

namespace {

/// From a change of the windows' order until it is looked at: a desktop that starts makes several.
constexpr std::chrono::milliseconds restackingPace{300};

} // namespace

X11Stacking::X11Stacking(X11Connection& connection, X11Events& events, xcb_connection_t* showing,
                         xcb_window_t window, QRect place)
    : m_connection(connection)
    , m_events(events)
    , m_showing(showing)
    , m_window(window)
    , m_place(place)
{
    connect(&m_events, &X11Events::received, this, &X11Stacking::handle);
    m_restacking.setSingleShot(true);
    m_restacking.setInterval(restackingPace);
    connect(&m_restacking, &QTimer::timeout, this, &X11Stacking::checkOrder);
}

void X11Stacking::prepare()
{
    chooseEvents(XCB_EVENT_MASK_PROPERTY_CHANGE);
    m_desktop = desktopWindowAt(m_connection, m_place.center());
    m_canBelong = canBelong();
    bindToDesktop();
}

void X11Stacking::follow()
{
    m_isShown = true;
    // Qt takes it away as it shows the window.
    bindToDesktop();
    // Above the window that a file manager draws its desktop in, but where nobody manages the windows, below
    // all of them.
    move(manager() == XCB_WINDOW_NONE ? XCB_STACK_MODE_BELOW : XCB_STACK_MODE_ABOVE);
    m_events.drain();
}

void X11Stacking::rest()
{
    m_isShown = false;
    m_restacking.stop();
    chooseEvents(XCB_EVENT_MASK_NO_EVENT);
}

void X11Stacking::handle(const xcb_generic_event_t& event)
{
    if ((event.response_type & 0x7F) != XCB_PROPERTY_NOTIFY)
        return;
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (change.atom == m_connection.atom("_NET_CLIENT_LIST_STACKING"))
        orderChanged();
}

void X11Stacking::orderChanged()
{
    if (!m_canBelong && m_isShown && isBelow(m_desktop))
        move(XCB_STACK_MODE_ABOVE);
    if (!m_restacking.isActive())
        m_restacking.start();
}

/// A desktop that was started anew covers ours. Some window managers then keep the order that windows were
/// shown in, whatever they are asked for.
void X11Stacking::checkOrder()
{
    if (!m_isShown)
        return;
    const xcb_window_t desktop = desktopWindowAt(m_connection, m_place.center());
    if (desktop != std::exchange(m_desktop, desktop)) {
        bindToDesktop();
        Q_EMIT desktopChanged();
        m_restacking.start();
    } else if (!isBelow(m_desktop)) {
        m_refused = XCB_WINDOW_NONE;
    } else if (std::exchange(m_refused, m_desktop) != m_desktop) {
        Q_EMIT refused();
    }
    m_events.drain();
}

/// Window managers keep a window that belongs to another above that one, even when the user clicks there.
void X11Stacking::bindToDesktop()
{
    if (m_desktop == XCB_WINDOW_NONE || !m_canBelong)
        xcb_delete_property(m_showing, m_window, XCB_ATOM_WM_TRANSIENT_FOR);
    else
        xcb_change_property(m_showing, XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_TRANSIENT_FOR,
                            XCB_ATOM_WINDOW, 32, 1, &m_desktop);
    xcb_flush(m_showing);
}

void X11Stacking::move(xcb_stack_mode_t to)
{
    const std::uint32_t mode = to;
    xcb_configure_window(m_showing, m_window, XCB_CONFIG_WINDOW_STACK_MODE, &mode);
    xcb_flush(m_showing);
}

void X11Stacking::chooseEvents(std::uint32_t events)
{
    xcb_change_window_attributes(m_connection.get(), m_connection.root(), XCB_CW_EVENT_MASK, &events);
    xcb_flush(m_connection.get());
}

bool X11Stacking::isBelow(xcb_window_t other)
{
    const std::vector<xcb_window_t> fromBelow = stackedWindows(m_connection);
    const auto own = std::ranges::find(fromBelow, m_window);
    return std::find(own, fromBelow.end(), other) != fromBelow.end();
}

/// A window of the window manager's own.
xcb_window_t X11Stacking::manager()
{
    const auto windows =
        m_connection.property(m_connection.root(), "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW);
    return windows.empty() ? xcb_window_t{XCB_WINDOW_NONE} : windows.front();
}

/// Not with KWin (5.27): it crashes when the desktop's program ends while another window belongs to its.
bool X11Stacking::canBelong()
{
    const xcb_window_t window = manager();
    return window == XCB_WINDOW_NONE ||
           m_connection.text(window, "_NET_WM_NAME", m_connection.atom("UTF8_STRING")) != "KWin";
}

} // namespace tessel
