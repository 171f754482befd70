// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QRect>
#include <QTimer>

#include <xcb/xcb.h>

namespace tessel {

class X11Connection;
class X11Events;

/// The place of a window of ours in the order of windows: above the window in which another program draws the
/// desktop, below all others.
class X11Stacking : public QObject
{
    Q_OBJECT

public:
    /// \param connection for questions; it and its events must outlive this
    /// \param showing Qt's, on which the window is shown: what is asked for comes in the order of the calls
    /// \param place of the window among the pixels of the whole desktop
    X11Stacking(X11Connection& connection, X11Events& events, xcb_connection_t* showing, xcb_window_t window,
                QRect place);

    /// Before the window is shown: the window manager is to see this before it takes the window in.
    void prepare();
    /// After that: puts the window in its place, and from then on keeps it there.
    void follow();
    /// When the window is hidden.
    void rest();

    /// In which another program draws the desktop, by what was seen last.
    [[nodiscard]] xcb_window_t desktop() const { return m_desktop; }

Q_SIGNALS:
    /// desktop() is another window.
    void desktopChanged();
    /// Only being hidden and shown anew brings the window to its place.
    void refused();

private:
    void handle(const xcb_generic_event_t& event);
    void orderChanged();
    void checkOrder();
    void bindToDesktop();
    void move(xcb_stack_mode_t to);
    void chooseEvents(std::uint32_t events);
    [[nodiscard]] bool isBelow(xcb_window_t other);
    [[nodiscard]] xcb_window_t manager();
    [[nodiscard]] bool canBelong();

    X11Connection& m_connection;
    X11Events& m_events;
    xcb_connection_t* const m_showing;
    const xcb_window_t m_window;
    const QRect m_place;
    bool m_isShown = false;
    xcb_window_t m_desktop = XCB_WINDOW_NONE;
    bool m_canBelong = true;                  ///< whether the window manager may know that ours belongs to it
    xcb_window_t m_refused = XCB_WINDOW_NONE; ///< the one that ours was last shown anew to get above
    QTimer m_restacking;
};

} // namespace tessel
