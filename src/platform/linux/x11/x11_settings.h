// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/x11/x11_connection.h"

#include <QString>

namespace tessel {

/// What the settings daemon of an X desktop tells all programs, as "XSETTINGS - cross toolkit configuration
/// proposal" 0.5 has it. There may be no daemon, or no X server, and a daemon may come later.
class X11Settings : public QObject
{
    Q_OBJECT

public:
    X11Settings();

    /// The value of a setting that is text, such as "Gtk/FontName"; empty without one.
    [[nodiscard]] QString text(const QString& name);

Q_SIGNALS:
    /// Any of them may have another value, or none.
    void changed();

private:
    void findDaemon();
    void react(const xcb_generic_event_t& event);

    X11Connection m_connection;
    X11Events m_events{m_connection};
    xcb_atom_t m_selection = XCB_ATOM_NONE; ///< whose owner is the daemon
    xcb_window_t m_daemon = XCB_WINDOW_NONE;
};

} // namespace tessel
