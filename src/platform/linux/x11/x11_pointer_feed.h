// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/pointer_feed.h"

#include <cstdint>
#include <optional>
#include <xcb/xcb.h>

namespace tessel {

class X11Connection;
class X11Events;

/// What XInput tells of every pointer, whichever window it is over. Where it lies is asked for only then.
class X11PointerFeed final : public PointerFeed
{
    Q_OBJECT

public:
    /// \param connection must outlive this
    /// \param events of that connection
    X11PointerFeed(X11Connection& connection, X11Events& events);
    X11PointerFeed(const X11PointerFeed&) = delete;
    X11PointerFeed& operator=(const X11PointerFeed&) = delete;
    ~X11PointerFeed() override;

private:
    void choose(std::uint32_t events);
    void handle(const xcb_generic_event_t& event);
    void tellMove();

    X11Connection& m_connection;
    std::uint8_t m_extension = 0; ///< the number of XInput's events
    bool m_hasMoved = false;      ///< since it was told
};

} // namespace tessel
