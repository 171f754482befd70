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

/// What plays on the desktop: a window on every screen, whether it is drawn live, shows a picture or is not
/// there.
class LiveWindows
{
public:
    enum class State : std::uint8_t
    {
        hidden,  ///< the desktop shows its own picture
        playing, ///< they are drawn live
        still    ///< they show a picture, since the desktop cannot
    };

    /// All must outlive this.
    LiveWindows(WindowSystem& system, Scene& scene, Graphics& graphics);

    /// Has one window on each screen from now on; none is touched as long as the screens are the same.
    void setScreens(const std::vector<Screen>& screens);
    [[nodiscard]] bool areOn(const std::vector<Screen>& screens) const;

    [[nodiscard]] State state() const { return m_state; }

    void play();
    void showPictures(const std::vector<DesktopPicture>& pictures);
    void hide();

    /// Whether somebody may see the desktop; while nobody does, nothing is drawn.
    void setSeen(bool seen);

    /// Draws at once, as after a sleep.
    void restart();

private:
    void refreshPauses();

    WindowSystem& m_system;
    Scene& m_scene;
    Graphics& m_graphics;
    std::vector<Screen> m_screens; ///< those without a window included
    std::vector<std::unique_ptr<PassthroughView>> m_views;
    State m_state = State::hidden;
    bool m_isSeen = true;
};

} // namespace tessel
