// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

#include <optional>
#include <xcb/dpms.h>

class QTimer;

namespace tessel {

class X11Connection;
class X11Events;

/// Whether the X server has switched the monitors off to save power. It tells that only when asked.
class X11ScreenPower : public QObject
{
    Q_OBJECT

public:
    /// \param events of that connection; both must outlive this
    X11ScreenPower(X11Connection& connection, X11Events& events);
    ~X11ScreenPower() override;

    /// While there is somebody who wants to know, the server is asked; otherwise the monitors count as on.
    void addWatcher();
    void removeWatcher();

    [[nodiscard]] bool isOff() const { return m_off; }

Q_SIGNALS:
    void changed();

private:
    void ask();
    void readAnswer();
    void setOff(bool off);

    QTimer* m_asking;
    X11Connection& m_connection;
    std::optional<xcb_dpms_info_cookie_t> m_question; ///< not answered yet
    int m_watchers = 0;
    bool m_off = false;
};

} // namespace tessel
