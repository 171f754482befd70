// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/panel_window.h"

#include <QTimer>
#include <QWindow>

#include <xcb/shape.h>

namespace tessel {

class X11Connection;
class X11Events;
class X11Focus;
class X11Occlusion;

/// A window of the type that desktops give their own panels; where the manager keeps none, one that it leaves
/// alone.
class X11PanelWindow final : public PanelWindow
{
    Q_OBJECT

public:
    /// All that is given must outlive this.
    /// \param events of that connection
    X11PanelWindow(X11Connection& connection, X11Events& events, X11Focus& focus, X11Occlusion& occlusion,
                   QWindow& window);

    void show() override;
    void hide() override;
    void setFrame(const QRect& frame) override;
    [[nodiscard]] bool isBlended() const override;
    void setShape(const QRegion& shape) override;
    void setInputRegion(const QRegion& region) override;
    void setKeyboardFocus(KeyboardFocus focus) override;

private:
    void setShape(xcb_shape_kind_t kind, const QRegion& pixels);
    void update();
    [[nodiscard]] QRect pixels() const;
    void tellManager();
    void handle(const xcb_generic_event_t& event);
    void stayAbove();
    [[nodiscard]] bool isManaged() const;
    void takeFocus();
    [[nodiscard]] bool hasFocus();

    X11Connection& m_connection;
    X11Focus& m_focus;
    X11Occlusion& m_occlusion;
    QWindow& m_window;
    const xcb_window_t m_id;
    QTimer m_rising;
    bool m_isWanted = false; ///< nobody has hidden it
    KeyboardFocus m_keyboard = KeyboardFocus::never;
    WId m_focusBefore = 0; ///< the window that had the focus; 0 for none
};

} // namespace tessel
