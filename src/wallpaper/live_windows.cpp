// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/live_windows.h"

#include <algorithm>

namespace tessel {

LiveWindows::LiveWindows(WindowSystem& system, Scene& scene, Graphics& graphics)
    : m_system(system)
    , m_scene(scene)
    , m_graphics(graphics)
{
}

bool LiveWindows::areOn(const std::vector<Screen>& screens) const
{
    return std::ranges::equal(m_screens, screens, &Screen::isSamePlace);
}

void LiveWindows::setScreens(const std::vector<Screen>& screens)
{
    if (areOn(screens))
        return;
    m_screens = screens;
    m_windows.clear();
    for (const Screen& screen : screens) {
        std::unique_ptr<WallpaperWindow> window =
            m_system.makeWallpaperWindow(screen, m_graphics.rasterizer());
        if (window == nullptr)
            continue;
        auto view = std::make_unique<PassthroughView>(*window, m_scene, m_graphics);
        m_windows.push_back({std::move(window), std::move(view)});
    }
}

void LiveWindows::play()
{
    m_arePlaying = true;
    for (const LiveWindow& each : m_windows)
        each.window->show();
    refreshPauses();
}

void LiveWindows::hide()
{
    m_arePlaying = false;
    refreshPauses();
    for (const LiveWindow& each : m_windows)
        each.window->hide();
}

void LiveWindows::setSeen(bool seen)
{
    m_isSeen = seen;
    refreshPauses();
}

void LiveWindows::restart()
{
    for (const LiveWindow& each : m_windows)
        each.view->restart();
}

void LiveWindows::refreshPauses()
{
    for (const LiveWindow& each : m_windows)
        each.view->setPaused(!m_arePlaying || !m_isSeen);
}

} // namespace tessel
