// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/screens.h"

#include <QTimer>

namespace tessel {

/// Monitors of which a burst of changes is told once, at its end: one that is plugged in reports several.
class SettlingScreens : public Screens
{
    Q_OBJECT

public:
    SettlingScreens();

    /// Makes Qt's points so much larger than the display server's, beside what the user's environment asks
    /// for.
    void setPointScale(double scale);

protected:
    /// As one change of a burst.
    void noteChange() { m_burst.start(); }
    /// What is to be done at the end of a burst, before it is told.
    virtual void update() {}

    /// How many of the display server's points are one of Qt's.
    [[nodiscard]] double pointScale() const { return m_pointScale; }

private:
    double m_pointScale;
    QTimer m_burst; ///< runs through a burst of changes
};

} // namespace tessel
