// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/store.h"
#include "platform/desktop_pictures.h"
#include "platform/desktop_window.h"
#include "platform/occlusion.h"
#include "platform/screens.h"
#include "platform/session.h"
#include "wallpaper/desktop_wallpaper.h"
#include "wallpaper/passthrough_view.h"
#include "wallpaper/still_maker.h"

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
    std::chrono::milliseconds settling{2000};
    std::chrono::milliseconds leaving{3000}; ///< the longest that a still holds up the program's end
};

/// What the applier works with; everything named by reference must outlive it.
struct WallpaperEnvironment
{
    Store& store;
    Screens& screens;
    Session& session;
    Occlusion& occlusion;
    DesktopPictures* pictures; ///< nullptr where there are none: then our windows keep showing the still
    std::function<std::unique_ptr<DesktopWindow>(const Screen&)> makeWindow;
    std::function<void()> makeCurrent; ///< an OpenGL context, for drawing out of sight
    Rasterizer rasterizer = Rasterizer::gpu;
    QString folder = defaultWallpaperFolder();
    StillDelays delays = {};
};

/// Puts the store's desktop look on every screen: live in windows of our own, and as a picture that stays.
class Wallpaper : public DesktopWallpaper
{
    Q_OBJECT

public:
    explicit Wallpaper(WallpaperEnvironment environment);
    ~Wallpaper() override;

    void start() override;

    /// Cross-fades to the look, and shows it later as a still behind or instead of the animation.
    void apply(ContinueFromEditor continuing) override;

    /// A still that is not made yet is waited for, within the delay for leaving.
    void stop() override;

    /// Draws a look at a size in pixels and writes it as a PNG file, without holding up anything else.
    /// \param done called on this thread, with the reason for people if it did not work
    void savePng(const Look& look, QSize size, const QString& file,
                 std::function<void(std::optional<QString> failure)> done);

    /// The phases of all live views, this program's editor included.
    [[nodiscard]] AnimationClocks& clocks() { return m_scene.clocks(); }

private:
    /// What our windows are for.
    enum class Windows : std::uint8_t
    {
        down,    ///< the desktop shows its own picture
        playing, ///< they are drawn live
        holding  ///< they show the still, since the desktop cannot
    };

    void restorePhase();
    void keepPhase();
    [[nodiscard]] std::vector<QSize> sizes() const;

    [[nodiscard]] bool hasWindowsFor(const std::vector<Screen>& screens) const;
    void followScreens();
    void startAnimation();
    void play();
    void tellPictureBehind();
    void takeDown();
    void screensChanged();
    void wake();
    void refreshPauses();

    [[nodiscard]] bool isStillComing() const;
    void makeStill();
    void finishStill();
    void tellMissingPhoto();
    void stillWritten(const std::vector<DesktopPicture>& pictures);
    void picturesSet(const QStringList& failures);
    void hold(const std::vector<DesktopPicture>& pictures);
    void holdNow();

    [[nodiscard]] std::vector<DesktopPicture> latestPictures() const;
    void showLatest();

    WallpaperEnvironment m_environment;
    FrameEncoder m_encoder;
    DesktopScene m_scene;
    StillMaker m_stills;
    std::vector<std::unique_ptr<PassthroughView>> m_views; ///< one for each screen
    Windows m_windows = Windows::down;
    QTimer m_hideWork; ///< until the still is made
    QTimer m_settling; ///< until the windows are taken down, after the desktop has got its picture
    std::vector<Screen> m_pictured; ///< the screens that the current stills were made for
    std::vector<DesktopPicture> m_written;
    int m_settingCalls = 0;
    bool m_pendingStatic = false;
    bool m_phaseRestored = false;
};

} // namespace tessel
