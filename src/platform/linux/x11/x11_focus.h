// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/focus.h"
#include "platform/linux/x11/x11_connection.h"

#include <cstdint>
#include <initializer_list>
#include <string>

namespace tessel {

/// The focus as the window manager tells and changes it.
class X11Focus : public Focus
{
public:
    /// \param connection must outlive this
    explicit X11Focus(X11Connection& connection) : m_connection(connection) {}

    [[nodiscard]] WId current() override;
    void give(WId window) override;
    void giveBack(WId window) override;
    void makePanel(WId window) override;

private:
    /// \param items up to 5
    void askManager(WId window, const std::string& request, std::initializer_list<std::uint32_t> items);
    [[nodiscard]] bool isInSight(xcb_window_t window);

    X11Connection& m_connection;
};

} // namespace tessel
