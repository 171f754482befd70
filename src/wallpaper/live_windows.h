// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "scene/scene.h"
#include "wallpaper/passthrough_view.h"
#include "wallpaper/wallpaper_environment.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <vector>

namespace tessel {

/// What plays on the desktop: a window on every screen, which is drawn live or hidden, so that the desktop
/// shows its own picture. While nobody can see the desktop nothing is drawn.
class LiveWindows : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive this.
    LiveWindows(const WallpaperEnvironment& environment, Scene& scene);

    /// Has the scene show what the store has now, for a window on each screen.
    void show();

    void play();
    void hide();
    /// Hides them once the desktop will show the picture that it has just been given, unless they are to show
    /// something else by then.
    void hideLater() { m_appearing.start(); }
    [[nodiscard]] bool arePlaying() const { return m_arePlaying; }

    /// Of the views that the screens take.
    [[nodiscard]] std::vector<ViewSize> sizes() const;

private:
    struct LiveWindow
    {
        std::unique_ptr<WallpaperWindow> window;
        std::unique_ptr<PassthroughView> view;
    };

    [[nodiscard]] bool areOn(const std::vector<Screen>& screens) const;
    void setScreens(const std::vector<Screen>& screens);
    void followScreens();
    void restart();
    void refreshPauses();

    const WallpaperEnvironment& m_environment;
    Scene& m_scene;
    std::vector<Screen> m_screens; ///< those without a window included
    std::vector<LiveWindow> m_windows;
    bool m_arePlaying = false;
    QTimer m_appearing; ///< until they are hidden, after the desktop has got its picture
};

} // namespace tessel
