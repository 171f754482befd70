// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/focus.h"
#include "platform/linux/x11_connection.h"

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
    X11Connection m_connection;
};

} // namespace tessel
