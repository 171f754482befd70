// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/canvas.h"

namespace tessel {

/// A window that fills one screen below everything else, on every workspace. It has no shadow, never takes
/// the focus, and every click goes through it. What other programs draw on the desktop, icons above all,
/// stays visible in front of it.
class WallpaperWindow : public LiveSurface
{
    Q_OBJECT

public:
    virtual void show() = 0;
    virtual void hide() = 0;
};

} // namespace tessel
