// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/focus.h"
#include "platform/linux/x11_connection.h"

#include <array>

namespace tessel {

/// The focus as the window manager tells and changes it.
class X11Focus : public Focus
{
public:
    [[nodiscard]] bool isValid() const { return m_connection.isValid(); }

    [[nodiscard]] WId current() override;
    void give(WId window) override;
    void showEverywhere(WId window) override;

private:
    void askManager(WId window, const std::string& request, const std::array<std::uint32_t, 2>& items);

    X11Connection m_connection;
};

} // namespace tessel
