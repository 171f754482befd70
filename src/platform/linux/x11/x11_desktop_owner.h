// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/x11/x11_connection.h"

#include <QObject>
#include <QRect>
#include <QTimer>

#include <memory>
#include <optional>
#include <string>
#include <vector>
#include <xcb/xcb.h>

namespace tessel {

/// The program whose window covers a monitor below all others, by the class that the window names; none if
/// nobody's does. Windows of our own do not count, nor small ones such as a clock drawn on the desktop.
[[nodiscard]] std::optional<std::string> desktopOwner(X11Connection& connection);

/// The window in which such a program draws the desktop on a monitor; XCB_WINDOW_NONE if none does. Of
/// several it is the uppermost, and one that the window manager lists goes before one that it does not.
/// \param monitor its place among all pixels
[[nodiscard]] xcb_window_t desktopWindowAt(X11Connection& connection, const QRect& monitor);

/// The windows that the window manager knows, from the lowest to the uppermost.
[[nodiscard]] std::vector<xcb_window_t> stackedWindows(X11Connection& connection);

/// Tells when the program that draws the desktop is another one, and when it may have another picture.
class X11DesktopOwnerWatch : public QObject
{
    Q_OBJECT

public:
    X11DesktopOwnerWatch();
    ~X11DesktopOwnerWatch() override;

Q_SIGNALS:
    void changed();
    void pictureChanged();

private:
    void handle(const xcb_generic_event_t& event);
    void look();

    /// Of its own: desktops are told their pictures whatever window system we run on, and a Wayland session
    /// has an X server for those that need one.
    X11Connection m_connection;
    std::unique_ptr<X11Events> m_events;
    std::optional<std::string> m_owner;
    QTimer m_looking; ///< from a change of the windows until it is looked at
};

} // namespace tessel
