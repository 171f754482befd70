// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/window_pointer_feed.h"

#include <cstdint>
#include <xcb/xcb.h>

namespace tessel {

class X11Connection;
class X11Events;

/// Over the window what Qt tells of it; of buttons what XInput tells, whichever window they are pressed over.
class X11PointerFeed final : public WindowPointerFeed
{
    Q_OBJECT

public:
    /// \param connection must outlive this, as must the window
    /// \param events of that connection
    X11PointerFeed(X11Connection& connection, X11Events& events, QWindow& window);
    X11PointerFeed(const X11PointerFeed&) = delete;
    X11PointerFeed& operator=(const X11PointerFeed&) = delete;
    ~X11PointerFeed() override;

private:
    /// What was pressed on the window itself, as Qt tells it.
    struct Press
    {
        quint64 time = 0;
        QPoint position;
    };

    bool eventFilter(QObject* watched, QEvent* event) override;
    void choose(std::uint32_t events);
    void handle(const xcb_generic_event_t& event);

    X11Connection& m_connection;
    std::uint8_t m_extension = 0; ///< the number of XInput's events
    Press m_latestPress;
};

} // namespace tessel
