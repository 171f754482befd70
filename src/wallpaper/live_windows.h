// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/window_system.h"
#include "render/graphics.h"
#include "scene/scene.h"
#include "wallpaper/passthrough_view.h"

#include <memory>
#include <vector>

namespace tessel {

/// What plays on the desktop: a window on every screen, which is drawn live or hidden, so that the desktop
/// shows its own picture.
class LiveWindows
{
public:
    /// All must outlive this.
    LiveWindows(WindowSystem& system, Scene& scene, Graphics& graphics);

    /// Has one window on each screen from now on; none is touched as long as the screens are the same.
    void setScreens(const std::vector<Screen>& screens);
    [[nodiscard]] bool areOn(const std::vector<Screen>& screens) const;

    void play();
    void hide();
    [[nodiscard]] bool arePlaying() const { return m_arePlaying; }

    /// Whether somebody may see the desktop; while nobody does, nothing is drawn.
    void setSeen(bool seen);

    /// Draws at once, as after a sleep.
    void restart();

private:
    struct LiveWindow
    {
        std::unique_ptr<WallpaperWindow> window;
        std::unique_ptr<PassthroughView> view;
    };

    void refreshPauses();

    WindowSystem& m_system;
    Scene& m_scene;
    Graphics& m_graphics;
    std::vector<Screen> m_screens; ///< those without a window included
    std::vector<LiveWindow> m_windows;
    bool m_arePlaying = false;
    bool m_isSeen = true;
};

} // namespace tessel
