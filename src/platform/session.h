// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

#include <memory>

namespace tessel {

/// What the machine and the user's session are doing, as far as it matters to something that draws all day.
struct SessionState
{
    bool asleep = false; ///< about to be suspended, or not yet back
    bool locked = false; ///< behind a lock screen or screen saver
    bool onBattery = false;
    bool reducedMotion = false; ///< the user asks for little motion
    bool highContrast = false;  ///< the user asks for more contrast
    double textScale = 1;       ///< how much larger than usual the user wants text, 0.5 to 3
    double fontScale = 1;       ///< how much larger than usual the desktop's font is beside that, 0.5 to 3

    bool operator==(const SessionState&) const = default;

    /// Whether nobody can see the desktop.
    [[nodiscard]] bool unseen() const { return asleep || locked; }
};

/// Tells what goes on around the program. What cannot be found out counts as not being so.
class Session : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] const SessionState& state() const { return m_state; }

Q_SIGNALS:
    void changed();
    /// The machine will sleep as soon as this returns.
    void aboutToSleep();
    void woke();
    /// Somebody has set the clock, or it was moved while the machine slept.
    void clockSet();

protected:
    /// For the adapters: emits `changed` if anything is different.
    void setState(const SessionState& state);

private:
    SessionState m_state;
};

[[nodiscard]] std::unique_ptr<Session> makeSession();

} // namespace tessel
