// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWindow>

namespace tessel {

/// The keyboard focus among the windows of all programs, for one that is in the background as a rule.
class Focus
{
public:
    virtual ~Focus() = default;

    /// The window that has the focus, whosever it is; 0 for none.
    [[nodiscard]] virtual WId current() = 0;

    /// Asks for the focus for a window of ours.
    virtual void give(WId window) = 0;

    /// Asks for the focus for a window that had it before, whosever it is. One that is gone, hidden or on
    /// another workspace is left as it is.
    virtual void giveBack(WId window) = 0;

    /// Makes a window that is shown appear on every workspace, and in no task bar, pager or list of windows.
    virtual void makePanel(WId window) = 0;
};

} // namespace tessel
