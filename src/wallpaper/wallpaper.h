// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "scene/scene.h"
#include "wallpaper/desktop_stills.h"
#include "wallpaper/desktop_wallpaper.h"
#include "wallpaper/live_windows.h"
#include "wallpaper/still_maker.h"
#include "wallpaper/wallpaper_environment.h"

#include <functional>
#include <optional>

namespace tessel {

/// Puts the store's desktop look on every screen: live in windows of our own, and as a picture that stays.
class Wallpaper : public DesktopWallpaper
{
    Q_OBJECT

public:
    explicit Wallpaper(const WallpaperEnvironment& environment);

    void start() override;

    /// Cross-fades to the look, and shows it later as a still behind or instead of the animation.
    void apply(ContinueFromEditor continuing) override;

    void rest() override;

    /// A still that is not made yet is waited for, within the delay for leaving.
    void stop() override;

private:
    void anticipate();
    void keepPhase();
    void playLive();
    void desktopChanged();
    void pictureReplaced();
    void stillsReady();
    void stillsMissing();
    void stillsHandedOver();

    const WallpaperEnvironment m_environment;
    Scene m_scene;
    LiveWindows m_live;
    StillMaker m_maker;
    DesktopStills m_stills;
};

} // namespace tessel
