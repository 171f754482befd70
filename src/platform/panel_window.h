// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QRect>
#include <QRegion>

namespace tessel {

/// Whether a window takes what is typed.
enum class KeyboardFocus : std::uint8_t
{
    never,
    taken
};

/// How a window of ours floats: above ordinary windows and on every workspace, but out of the way of those
/// that fill a screen, as the desktop's own panels are; in no task bar. It takes the keyboard on demand only.
/// The window itself, and what is in it, is somebody else's.
class PanelWindow : public QObject
{
    Q_OBJECT

public:
    /// Does nothing while it is shown.
    virtual void show() = 0;
    virtual void hide() = 0;

    /// \param frame points, among all screens
    virtual void setFrame(const QRect& frame) = 0;

    /// Whether what lies behind shines through its transparent parts. Where it does not, they are to be left
    /// out of its shape.
    [[nodiscard]] virtual bool isBlended() const = 0;

    /// The part of the window that there is at all, in device pixels from its top left corner.
    virtual void setShape(const QRegion& shape) = 0;

    /// The part that takes clicks; they go through all else. Empty for none.
    virtual void setInputRegion(const QRegion& region) = 0;

    /// Whoever had the keyboard before it was taken gets it back.
    virtual void setKeyboardFocus(KeyboardFocus focus) = 0;

Q_SIGNALS:
    /// isBlended() has another answer.
    void blendingChanged();
};

} // namespace tessel
