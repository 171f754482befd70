// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

#include <memory>
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
    explicit X11ScreenPower(QObject* parent);
    ~X11ScreenPower() override;

    /// Starts or stops asking. While nobody asks, the monitors count as on.
    void setWatching(bool watching);

Q_SIGNALS:
    void offChanged(bool off);

private:
    bool open();
    void ask();
    void readAnswer();
    void setOff(bool off);

    QTimer* m_asking;
    std::unique_ptr<X11Connection> m_connection; ///< made when it is first needed
    std::unique_ptr<X11Events> m_events;
    std::optional<xcb_dpms_info_cookie_t> m_question; ///< not answered yet
    bool m_off = false;
};

} // namespace tessel
