// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/store.h"
#include "platform/desktop_pictures.h"
#include "platform/session.h"
#include "platform/window_system.h"
#include "scene/scene.h"
#include "wallpaper/desktop_stills.h"
#include "wallpaper/desktop_wallpaper.h"
#include "wallpaper/live_windows.h"

#include <QTimer>

#include <chrono>
#include <functional>

namespace tessel {

/// "Tessel Broth/Wallpapers" below the user's data home.
[[nodiscard]] QString defaultWallpaperFolder();

/// From a look's being applied until its still is made: behind an animation, and instead of it once the
/// cross-fade is over.
struct StillDelays
{
    std::chrono::milliseconds animated{8000};
    std::chrono::milliseconds still{1800};
    /// From a picture's being set until the desktop shows it: some fade to it for more than a second.
    std::chrono::milliseconds appearing{2000};
    std::chrono::milliseconds leaving{3000}; ///< the longest that a still holds up the program's end
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

/// Puts the store's desktop look on every screen: live in windows of our own, and as a picture that stays.
class Wallpaper : public DesktopWallpaper
{
    Q_OBJECT

public:
    explicit Wallpaper(const WallpaperEnvironment& environment);

    void start() override;

    /// Cross-fades to the look, and shows it later as a still behind or instead of the animation.
    void apply(ContinueFromEditor continuing) override;

    /// A still that is not made yet is waited for, within the delay for leaving.
    void stop() override;

    /// Draws a look at a size in pixels and writes it as a PNG file, without holding up anything else.
    /// \param done called on this thread, with the reason for people if it did not work
    void savePng(const Look& look, QSize size, const QString& file,
                 std::function<void(std::optional<QString> failure)> done);

private:
    void restorePhase();
    void keepPhase();
    [[nodiscard]] std::vector<Screen> screens() const { return m_environment.windows.screens().list(); }
    [[nodiscard]] StillRecipe recipe(const Look& look) const;

    [[nodiscard]] std::vector<ViewSize> sizes() const;
    void showLook();
    void showLive();
    void desktopChanged();
    void pictureReplaced();
    void screensChanged();
    void wake();

    void scheduleStill();
    [[nodiscard]] bool isStillComing() const;
    void makeStill();
    void finishStill();
    void stillMade();
    void stillHandedOver(const QStringList& failures);
    void stillFound();
    void stillMissing();
    void tellMissingPhoto();
    void lookFailed(const QString& problem);

    const WallpaperEnvironment m_environment;
    Scene m_scene;
    LiveWindows m_live;
    DesktopStills m_stills;
    std::optional<Look> m_failedLook; ///< that could not be drawn
    QTimer m_stillDelay;              ///< until the still is made
    QTimer m_appearing;               ///< until the windows are hidden, after the desktop has got its picture
    bool m_waitsForScreen = false;    ///< a still was to be made while there was no screen
    bool m_phaseRestored = false;
};

} // namespace tessel
