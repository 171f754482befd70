// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_panel_window.h"

#include "platform/linux/x11/x11_connection.h"
#include "platform/linux/x11/x11_focus.h"

#include <QVariant>
#include <QWindow>

#include <array>
#include <cmath>
#include <xcb/shape.h>

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

QWindow& prepared(QWindow& window)
{
    window.setFlags(window.flags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint |
                    Qt::WindowDoesNotAcceptFocus);
    window.setProperty(typeProperty, dockType);
    window.create();
    return window;
}

} // namespace

X11PanelWindow::X11PanelWindow(X11Connection& connection, QWindow& window)
    : m_connection(connection)
    , m_window(prepared(window))
    , m_id(static_cast<xcb_window_t>(window.winId()))
{
}

void X11PanelWindow::show()
{
    m_window.show();
    tellManager();
    m_window.raise();
}

void X11PanelWindow::hide()
{
    m_window.hide();
}

void X11PanelWindow::setFrame(const QRect& frame)
{
    m_window.setGeometry(frame);
}

void X11PanelWindow::setShape(const QRegion& shape)
{
    m_window.setMask(shape);
}

void X11PanelWindow::setInputRegion(const QRegion& region)
{
    const double scale = m_window.devicePixelRatio();
    std::vector<xcb_rectangle_t> areas;
    for (const QRect& part : region) {
        // Outwards to whole pixels, so that neighbours leave no gap.
        const auto edge = [scale](int points) {
            return static_cast<std::int16_t>(std::floor(points * scale));
        };
        const auto farEdge = [scale](int points) { return std::ceil(points * scale); };
        const std::int16_t left = edge(part.left());
        const std::int16_t top = edge(part.top());
        areas.push_back({left, top, static_cast<std::uint16_t>(farEdge(part.left() + part.width()) - left),
                         static_cast<std::uint16_t>(farEdge(part.top() + part.height()) - top)});
    }
    // Qt leaves this part of the shape alone as long as the window is not transparent to all input.
    xcb_shape_rectangles(m_connection.get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED,
                         m_id, 0, 0, static_cast<std::uint32_t>(areas.size()), areas.data());
    xcb_flush(m_connection.get());
}

void X11PanelWindow::setKeyboardFocus(KeyboardFocus focus)
{
    m_focus = focus;
    tellManager();
    if (focus == KeyboardFocus::taken && m_window.isVisible())
        X11Focus(m_connection).give(m_id);
}

/// What window managers read of the window; Qt writes it anew as it shows the window.
void X11PanelWindow::tellManager()
{
    const std::array<std::uint32_t, hintItems> hints{inputHint, m_focus == KeyboardFocus::taken ? 1U : 0U};
    m_connection.setProperty(m_id, "WM_HINTS", XCB_ATOM_WM_HINTS, hints);
    m_connection.setProperty(m_id, "_NET_WM_DESKTOP", XCB_ATOM_CARDINAL, {&everyWorkspace, 1});
    xcb_flush(m_connection.get());
}

} // namespace tessel
