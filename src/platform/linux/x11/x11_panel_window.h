// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/panel_window.h"

#include <xcb/xcb.h>

class QWindow;

namespace tessel {

class X11Connection;

/// A window of the type that desktops give their own panels.
class X11PanelWindow final : public PanelWindow
{
public:
    /// \param connection must outlive this
    X11PanelWindow(X11Connection& connection, QWindow& window);

    void show() override;
    void hide() override;
    void setFrame(const QRect& frame) override;
    void setShape(const QRegion& shape) override;
    void setInputRegion(const QRegion& region) override;
    void setKeyboardFocus(KeyboardFocus focus) override;

private:
    void tellManager();

    X11Connection& m_connection;
    QWindow& m_window;
    const xcb_window_t m_id;
    KeyboardFocus m_focus = KeyboardFocus::never;
};

} // namespace tessel
