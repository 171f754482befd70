// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/store.h"
#include "platform/desktop_pictures.h"
#include "platform/session.h"
#include "platform/window_system.h"
#include "render/graphics.h"
#include "scene/animation_clocks.h"
#include "scene/look_preparer.h"
#include "wallpaper/wallpaper_folder.h"

#include <chrono>

namespace tessel {

/// From a look's being applied until its still is made: behind an animation, and instead of it once the
/// cross-fade is over.
struct StillDelays
{
    std::chrono::milliseconds animated{8000};
    std::chrono::milliseconds still{1800};
    /// From a picture's being set until the desktop shows it: some fade to it for more than a second.
    std::chrono::milliseconds appearing{2000};
    std::chrono::milliseconds leaving{2000}; ///< the longest that a still holds up the program's end
    std::chrono::milliseconds retry{30000};  ///< between attempts to write one while the disk refuses
};

/// What the applier works with; everything named by reference must outlive it.
struct WallpaperEnvironment
{
    Store& store;
    WindowSystem& windows;
    Session& session;
    DesktopPictures& pictures;
    Graphics& graphics;
    AnimationClocks& clocks;
    LookPreparer& preparer;
    QString folder = defaultWallpaperFolder();
    StillDelays delays = {};
};

} // namespace tessel
