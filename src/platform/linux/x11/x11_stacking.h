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

/// The place of a window of ours on the screen and in the order of windows: above the window in which another
/// program draws the desktop, below all others. Window managers that know desktop windows are asked to keep
/// it there; all others, and those that move it, never get to manage it.
class X11Stacking : public QObject
{
    Q_OBJECT

public:
    /// \param connection for questions; must outlive this
    /// \param events of that connection
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
    void handleProperty(xcb_atom_t property);
    void check();
    bool checkManager();
    bool checkPlace();
    void checkOrder();

    [[nodiscard]] xcb_window_t manager();
    [[nodiscard]] bool isToManage(xcb_window_t manager);
    [[nodiscard]] bool isListed(xcb_window_t window);
    [[nodiscard]] xcb_window_t rival();
    [[nodiscard]] xcb_window_t trueRival();
    [[nodiscard]] bool isInTheWay(xcb_window_t window);

    void bindToDesktop();
    void putInPlace();
    void putInOrder();

    X11Connection& m_connection;
    xcb_connection_t* const m_showing;
    const xcb_window_t m_window;
    const QRect m_place;
    QTimer m_checking;
    bool m_isShown = false;
    xcb_window_t m_manager = XCB_WINDOW_NONE; ///< that was there when ours was shown
    bool m_isManaged = false;                 ///< whether that manager got the window
    bool m_canBelong = true;                  ///< whether it may know that ours belongs to the desktop's
    xcb_window_t m_desktop = XCB_WINDOW_NONE;
    xcb_window_t m_rival = XCB_WINDOW_NONE;     ///< the one that the order was last changed for
    bool m_wasPutBack = false;                  ///< after the manager had moved it
    xcb_window_t m_displacer = XCB_WINDOW_NONE; ///< a manager that moves the window whatever it is asked for
};

} // namespace tessel
