// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/wayland/wayland_objects.h"
#include "platform/panel_window.h"

#include <QElapsedTimer>
#include <QWindow>

#include <cstdint>
#include <memory>

namespace tessel {

/// A window of Qt's that stands above all others, at the left or the right edge of an output.
class WaylandPanelWindow final : public PanelWindow
{
    Q_OBJECT

public:
    /// \param window must outlive what is returned
    /// \return nullptr where Qt's windows are on no such compositor
    [[nodiscard]] static std::unique_ptr<WaylandPanelWindow> make(QWindow& window);
    ~WaylandPanelWindow() override;

    void show() override;
    void hide() override;
    void setFrame(const QRect& frame) override;
    [[nodiscard]] bool isBlended() const override { return true; }
    /// Does nothing: what is transparent shows what lies behind.
    void setShape(const QRegion& /*shape*/) override {}
    void setInputRegion(const QRegion& region) override;
    void setKeyboardFocus(KeyboardFocus focus) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Listener;
    /// How the keyboard is held while it is wanted.
    enum class Hold
    {
        taking, ///< at once, whoever has it
        shared, ///< given free, and back with a click
        keeping ///< until the pointer leaves
    };

    WaylandPanelWindow(QWindow& window, WaylandPointer<zwlr_layer_shell_v1> layers);
    void describe();
    void commit();
    void followActivity();
    void hold(Hold hold);
    void updateKeyboard();
    [[nodiscard]] std::uint32_t interactivity() const;
    [[nodiscard]] bool isAtRightEdge() const;

    QWindow& m_window;
    const WaylandPointer<zwlr_layer_shell_v1> m_layers; ///< on Qt's connection
    WaylandPointer<zwlr_layer_surface_v1> m_role;       ///< there while it is shown
    QScreen* m_screen = nullptr;                        ///< on which it is
    QRect m_frame;
    QRegion m_inputRegion;
    KeyboardFocus m_keyboard = KeyboardFocus::never;
    Hold m_hold = Hold::taking;
    QElapsedTimer m_sinceShared; ///< since it came and was given free
};

} // namespace tessel
