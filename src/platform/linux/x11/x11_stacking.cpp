// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_stacking.h"

#include "platform/linux/x11/x11_connection.h"
#include "platform/linux/x11/x11_desktop_owner.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

namespace tessel {

namespace {

/// From a change of the windows' order until it is looked at: a desktop that starts makes several.
constexpr std::chrono::milliseconds pace{300};

constexpr auto managerProperty = "_NET_SUPPORTING_WM_CHECK";
constexpr auto supportedProperty = "_NET_SUPPORTED";
constexpr auto orderProperty = "_NET_CLIENT_LIST_STACKING";

} // namespace

X11Stacking::X11Stacking(X11Connection& connection, X11Events& events, xcb_connection_t* showing,
                         xcb_window_t window, QRect place)
    : m_connection(connection)
    , m_showing(showing)
    , m_window(window)
    , m_place(place)
{
    connect(&events, &X11Events::received, this, &X11Stacking::handle);
    m_checking.setSingleShot(true);
    m_checking.setInterval(pace);
    connect(&m_checking, &QTimer::timeout, this, &X11Stacking::check);
}

void X11Stacking::prepare()
{
    m_manager = manager();
    m_isManaged = isToManage(m_manager);
    // KWin (5.27) crashes when the desktop's program ends while another window belongs to its.
    m_canBelong = m_isManaged &&
                  m_connection.text(m_manager, "_NET_WM_NAME", m_connection.atom("UTF8_STRING")) != "KWin";
    // A manager tells of the order; without one everything that happens to a window may change it.
    m_connection.listenToRoot(XCB_EVENT_MASK_PROPERTY_CHANGE |
                              (m_isManaged ? XCB_EVENT_MASK_NO_EVENT : XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY));
    m_desktop = desktopWindowAt(m_connection, m_place);
    const std::uint32_t unmanaged = m_isManaged ? 0 : 1;
    xcb_change_window_attributes(m_showing, m_window, XCB_CW_OVERRIDE_REDIRECT, &unmanaged);
    // A manager that had the window before may not have taken its frame away yet.
    if (!m_isManaged)
        xcb_reparent_window(m_showing, m_window, m_connection.root(), static_cast<std::int16_t>(m_place.x()),
                            static_cast<std::int16_t>(m_place.y()));
    putInPlace();
    bindToDesktop();
}

void X11Stacking::follow()
{
    m_isShown = true;
    // Qt takes it away as it shows the window.
    bindToDesktop();
    putInOrder();
}

void X11Stacking::rest()
{
    m_isShown = false;
    m_wasPutBack = false;
    m_checking.stop();
}

void X11Stacking::handle(const xcb_generic_event_t& event)
{
    const int type = event.response_type & 0x7F;
    if (type == XCB_PROPERTY_NOTIFY)
        return handleProperty(reinterpret_cast<const xcb_property_notify_event_t&>(event).atom);
    // In all of these the window that listens stands at the same place.
    const xcb_window_t listener = reinterpret_cast<const xcb_configure_notify_event_t&>(event).event;
    const bool concerns = listener == m_window || (!m_isManaged && listener == m_connection.root());
    const std::array changes{XCB_CONFIGURE_NOTIFY, XCB_REPARENT_NOTIFY, XCB_MAP_NOTIFY, XCB_CIRCULATE_NOTIFY};
    if (m_isShown && concerns && std::ranges::find(changes, type) != changes.end() && !m_checking.isActive())
        m_checking.start();
}

void X11Stacking::handleProperty(xcb_atom_t property)
{
    const bool isOrder = property == m_connection.atom(orderProperty);
    if (!isOrder && property != m_connection.atom(managerProperty) &&
        property != m_connection.atom(supportedProperty))
        return;
    if (isOrder && m_isShown && m_isManaged && !m_canBelong && rival() != XCB_WINDOW_NONE)
        putInOrder();
    if (!m_checking.isActive())
        m_checking.start();
}

void X11Stacking::check()
{
    if (m_isShown && checkManager() && checkPlace())
        checkOrder();
}

/// \return whether it is the one that the window was shown to
bool X11Stacking::checkManager()
{
    const xcb_window_t now = manager();
    if (now == m_manager && isToManage(now) == m_isManaged)
        return true;
    Q_EMIT refused();
    return false;
}

/// \return whether the window is where it belongs
bool X11Stacking::checkPlace()
{
    if (placeOf(m_connection, m_window).value_or(m_place) == m_place) {
        m_wasPutBack = false;
        return true;
    }
    if (!std::exchange(m_wasPutBack, true)) {
        putInPlace();
        m_checking.start();
        return false;
    }
    m_displacer = m_manager;
    Q_EMIT refused();
    return false;
}

/// A desktop that was started anew covers ours. Some window managers then keep the order that windows were
/// shown in, whatever they are asked for.
void X11Stacking::checkOrder()
{
    const xcb_window_t desktop = desktopWindowAt(m_connection, m_place);
    if (desktop != std::exchange(m_desktop, desktop)) {
        bindToDesktop();
        Q_EMIT desktopChanged();
        m_checking.start();
        return;
    }
    const xcb_window_t found = rival();
    if (found == std::exchange(m_rival, found) || found == XCB_WINDOW_NONE)
        return;
    if (m_isManaged)
        Q_EMIT refused();
    else
        putInOrder();
}

/// A window of the window manager's own. A manager that was killed leaves its name behind.
xcb_window_t X11Stacking::manager()
{
    const auto named = m_connection.property(m_connection.root(), managerProperty, XCB_ATOM_WINDOW);
    if (named.empty() || m_connection.property(named.front(), managerProperty, XCB_ATOM_WINDOW) != named)
        return XCB_WINDOW_NONE;
    return named.front();
}

bool X11Stacking::isToManage(xcb_window_t manager)
{
    if (manager == XCB_WINDOW_NONE || manager == m_displacer)
        return false;
    const auto supported = m_connection.property(m_connection.root(), supportedProperty, XCB_ATOM_ATOM);
    return std::ranges::find(supported, m_connection.atom("_NET_WM_WINDOW_TYPE_DESKTOP")) != supported.end();
}

bool X11Stacking::isListed(xcb_window_t window)
{
    const std::vector<xcb_window_t> listed = stackedWindows(m_connection);
    return std::ranges::find(listed, window) != listed.end();
}

/// A window that is on the wrong side of ours.
xcb_window_t X11Stacking::rival()
{
    if (!m_isManaged)
        return trueRival();
    const std::vector<xcb_window_t> fromBelow = stackedWindows(m_connection);
    const auto own = std::ranges::find(fromBelow, m_window);
    return std::find(own, fromBelow.end(), m_desktop) == fromBelow.end() ? xcb_window_t{XCB_WINDOW_NONE}
                                                                         : m_desktop;
}

/// The same by the order that the X server knows.
xcb_window_t X11Stacking::trueRival()
{
    const std::vector<xcb_window_t> fromBelow = childrenOf(m_connection, m_connection.root());
    const auto own = std::ranges::find(fromBelow, m_window);
    auto between = fromBelow.begin();
    if (m_desktop != XCB_WINDOW_NONE) {
        between = std::ranges::find(fromBelow, outermost(m_connection, m_desktop));
        if (between > own)
            return m_desktop;
    }
    const auto found = std::find_if(between, own, [this](xcb_window_t window) { return isInTheWay(window); });
    return found == own ? xcb_window_t{XCB_WINDOW_NONE} : *found;
}

/// Whether a window below ours cannot be seen because of it.
bool X11Stacking::isInTheWay(xcb_window_t window)
{
    if (m_desktop != XCB_WINDOW_NONE && window == outermost(m_connection, m_desktop))
        return false;
    const std::optional<QRect> place = placeOf(m_connection, window);
    return place && place->intersects(m_place);
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

/// By its pixels: points are whole numbers, and at a fractional scale Qt's window can be a pixel larger.
void X11Stacking::putInPlace()
{
    const std::array values{static_cast<std::uint32_t>(m_place.x()), static_cast<std::uint32_t>(m_place.y()),
                            static_cast<std::uint32_t>(m_place.width()),
                            static_cast<std::uint32_t>(m_place.height())};
    xcb_configure_window(m_showing, m_window,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values.data());
    xcb_flush(m_showing);
}

void X11Stacking::putInOrder()
{
    // A manager that lists the desktop's window keeps both below all others: there, on top is above that one.
    const bool isBound = m_isManaged && isListed(m_desktop);
    if (m_desktop == XCB_WINDOW_NONE || isBound) {
        const std::uint32_t mode = isBound ? XCB_STACK_MODE_ABOVE : XCB_STACK_MODE_BELOW;
        xcb_configure_window(m_showing, m_window, XCB_CONFIG_WINDOW_STACK_MODE, &mode);
    } else {
        const std::array<std::uint32_t, 2> values{outermost(m_connection, m_desktop), XCB_STACK_MODE_ABOVE};
        xcb_configure_window(m_showing, m_window, XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE,
                             values.data());
    }
    xcb_flush(m_showing);
}

} // namespace tessel
