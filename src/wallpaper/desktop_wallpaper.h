// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/store.h"

#include <QObject>

namespace tessel {

/// Puts the store's desktop look on every screen; the application's view of it, with nothing that draws.
class DesktopWallpaper : public QObject
{
    Q_OBJECT

public:
    /// Shows the store's desktop look, if there is one, as the program starts.
    virtual void start() = 0;

    /// Shows a look that was just put on the desktop.
    virtual void apply(ContinueFromEditor continuing) = 0;

    /// Gives back what was needed for drawing, unless something plays.
    virtual void rest() = 0;

    /// Takes everything of ours down and remembers where the animation was, as the program ends.
    virtual void stop() = 0;

Q_SIGNALS:
    /// The picture of the desktop could not be made or set; the old one stays.
    /// \param message why, naming the file or screen
    void stillFailed(const QString& message);
    /// The desktop's look is shown without its photo.
    /// \param message why, naming the file
    void photoMissing(const QString& message);
};

} // namespace tessel
