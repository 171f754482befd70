// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/canvas.h"

#include <QObject>
#include <QSize>

namespace tessel {

/// A window that fills one screen below everything else, on every workspace. It has no shadow, never takes
/// the focus, and every click goes through it. What other programs draw on the desktop, icons above all,
/// stays visible in front of it.
class WallpaperWindow : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] virtual QSize pixelSize() const = 0;
    [[nodiscard]] virtual Canvas canvas() = 0;

    virtual void show() = 0;
    virtual void hide() = 0;

    /// How many frames a second the window asks for from now on; 0 for none. Nothing is asked for that
    /// nobody would see.
    virtual void setFrameRate(int framesPerSecond) = 0;

Q_SIGNALS:
    /// It is time for the next frame.
    void frameDue();
    /// What was drawn is lost: the next frame has to be drawn whole, and now.
    void contentLost();
};

} // namespace tessel
