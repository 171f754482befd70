// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_panel_window.h"

#include "platform/linux/x11/x11_connection.h"
#include "platform/linux/x11/x11_focus.h"
#include "platform/linux/x11/x11_occlusion.h"

#include <QScreen>
#include <QVariant>

#include <algorithm>
#include <array>
#include <chrono>

namespace tessel {

namespace {

constexpr auto typeProperty = "_q_xcb_wm_window_type";
/// Qt's number for _NET_WM_WINDOW_TYPE_DOCK in that property.
constexpr int dockType = 0x4;
constexpr std::uint32_t everyWorkspace = 0xFFFFFFFF;

/// The layout of WM_HINTS: nine items, of which the first says which others count and the second whether the
/// window takes what is typed.
constexpr std::uint32_t inputHint = 1;
constexpr std::size_t hintItems = 9;

/// From a change among the windows until the manager has put them in their order.
constexpr std::chrono::milliseconds untilInOrder{100};

/// Whether the manager keeps panels, as those do that tell what room these leave. Others would dock it as a
/// bar, tile it, or leave it below new windows and without the keyboard: it goes around those.
bool keepsPanels(X11Connection& connection)
{
    const auto supported = connection.property(connection.root(), "_NET_SUPPORTED", XCB_ATOM_ATOM);
    return std::ranges::find(supported, connection.atom("_NET_WORKAREA")) != supported.end();
}

QWindow& prepared(X11Connection& connection, QWindow& window)
{
    window.setFlags(window.flags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint |
                    Qt::WindowDoesNotAcceptFocus);
    window.setFlag(Qt::BypassWindowManagerHint, !keepsPanels(connection));
    window.setProperty(typeProperty, dockType);
    window.create();
    return window;
}

} // namespace

X11PanelWindow::X11PanelWindow(X11Connection& connection, X11Events& events, X11Focus& focus,
                               X11Occlusion& occlusion, QWindow& window)
    : m_connection(connection)
    , m_focus(focus)
    , m_occlusion(occlusion)
    , m_window(prepared(connection, window))
    , m_id(static_cast<xcb_window_t>(window.winId()))
{
    connect(&m_occlusion, &X11Occlusion::blendingChanged, this, &PanelWindow::blendingChanged);
    connect(&m_occlusion, &X11Occlusion::filledChanged, this, &X11PanelWindow::update);
    if (isManaged())
        return;
    m_connection.listenToRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
    connect(&events, &X11Events::received, this, &X11PanelWindow::handle);
    m_rising.setSingleShot(true);
    m_rising.setInterval(untilInOrder);
    connect(&m_rising, &QTimer::timeout, this, &X11PanelWindow::stayAbove);
}

void X11PanelWindow::show()
{
    m_isWanted = true;
    update();
}

void X11PanelWindow::hide()
{
    m_isWanted = false;
    update();
}

/// A manager keeps the panel below windows that fill a screen; without one it makes room for them itself.
void X11PanelWindow::update()
{
    const bool isShown = m_isWanted && (isManaged() || !m_occlusion.isFilled(pixels()));
    if (isShown == m_window.isVisible())
        return;
    if (isShown) {
        // The workspace is read as the window comes, and has to be there by then.
        tellManager();
        m_connection.sync();
    }
    m_window.setVisible(isShown);
    if (!isShown)
        return;
    tellManager();
    m_window.raise();
}

/// Where it is among the pixels of the whole desktop.
QRect X11PanelWindow::pixels() const
{
    const QRect frame = m_window.geometry();
    const QPoint origin = m_window.screen()->geometry().topLeft();
    const double scale = m_window.devicePixelRatio();
    return {origin + ((frame.topLeft() - origin).toPointF() * scale).toPoint(),
            (frame.size().toSizeF() * scale).toSize()};
}

bool X11PanelWindow::isBlended() const
{
    return m_occlusion.isBlending();
}

void X11PanelWindow::setFrame(const QRect& frame)
{
    m_window.setGeometry(frame);
    update();
}

void X11PanelWindow::setShape(const QRegion& shape)
{
    setShape(XCB_SHAPE_SK_BOUNDING, shape);
}

void X11PanelWindow::setInputRegion(const QRegion& region)
{
    const double scale = m_window.devicePixelRatio();
    QRegion pixels;
    for (const QRect& part : region)
        // Outwards to whole pixels, so that neighbours leave no gap.
        pixels += QRectF(part.topLeft().toPointF() * scale, part.size().toSizeF() * scale).toAlignedRect();
    setShape(XCB_SHAPE_SK_INPUT, pixels);
}

/// Qt leaves both shapes alone, as the window has no mask and is not transparent to all input.
void X11PanelWindow::setShape(xcb_shape_kind_t kind, const QRegion& pixels)
{
    std::vector<xcb_rectangle_t> areas;
    for (const QRect& part : pixels)
        areas.push_back({static_cast<std::int16_t>(part.x()), static_cast<std::int16_t>(part.y()),
                         static_cast<std::uint16_t>(part.width()),
                         static_cast<std::uint16_t>(part.height())});
    xcb_shape_rectangles(m_connection.get(), XCB_SHAPE_SO_SET, kind, XCB_CLIP_ORDERING_UNSORTED, m_id, 0, 0,
                         static_cast<std::uint32_t>(areas.size()), areas.data());
    xcb_flush(m_connection.get());
}

void X11PanelWindow::setKeyboardFocus(KeyboardFocus focus)
{
    if (focus == m_keyboard)
        return;
    m_keyboard = focus;
    tellManager();
    if (focus == KeyboardFocus::taken) {
        m_focusBefore = m_focus.current();
        isManaged() ? m_focus.give(m_id) : takeFocus();
    } else if (hasFocus()) {
        m_focus.giveBack(m_focusBefore);
    }
}

bool X11PanelWindow::isManaged() const
{
    return !m_window.flags().testFlag(Qt::BypassWindowManagerHint);
}

void X11PanelWindow::handle(const xcb_generic_event_t& event)
{
    if ((event.response_type & 0x7F) != XCB_PROPERTY_NOTIFY || !m_window.isVisible())
        return;
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (change.window == m_connection.root() && (change.atom == m_connection.atom("_NET_CLIENT_LIST") ||
                                                 change.atom == m_connection.atom("_NET_ACTIVE_WINDOW")))
        m_rising.start();
}

/// Without a manager that does: a window that came, or was chosen, may stand above. Menus that do are in no
/// list.
void X11PanelWindow::stayAbove()
{
    if (!m_window.isVisible())
        return;
    static constexpr std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_connection.get(), m_id, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_flush(m_connection.get()); // which Qt leaves until something happens
}

/// Without the manager, which would not give it.
void X11PanelWindow::takeFocus()
{
    xcb_set_input_focus(m_connection.get(), XCB_INPUT_FOCUS_POINTER_ROOT, m_id, XCB_CURRENT_TIME);
    xcb_flush(m_connection.get());
}

bool X11PanelWindow::hasFocus()
{
    if (isManaged())
        return m_focus.current() == m_id;
    const auto reply =
        readReply(xcb_get_input_focus_reply, m_connection.get(), xcb_get_input_focus(m_connection.get()));
    return reply != nullptr && reply->focus == m_id;
}

/// What window managers read of the window; Qt writes it anew as it shows the window.
void X11PanelWindow::tellManager()
{
    const std::array<std::uint32_t, hintItems> hints{inputHint, m_keyboard == KeyboardFocus::taken ? 1U : 0U};
    m_connection.setProperty(m_id, "WM_HINTS", XCB_ATOM_WM_HINTS, hints);
    m_connection.setProperty(m_id, "_NET_WM_DESKTOP", XCB_ATOM_CARDINAL, {&everyWorkspace, 1});
    xcb_flush(m_connection.get());
}

} // namespace tessel
