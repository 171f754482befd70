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
    m_views.clear();
    for (const Screen& screen : screens) {
        if (std::unique_ptr<WallpaperWindow> window =
                m_system.makeWallpaperWindow(screen, m_graphics.rasterizer()))
            m_views.push_back(
                std::make_unique<PassthroughView>(screen, std::move(window), m_scene, m_graphics));
    }
}

void LiveWindows::play()
{
    m_arePlaying = true;
    for (const auto& view : m_views)
        view->show();
    refreshPauses();
}

void LiveWindows::hide()
{
    m_arePlaying = false;
    refreshPauses();
    for (const auto& view : m_views)
        view->hide();
}

void LiveWindows::setSeen(bool seen)
{
    m_isSeen = seen;
    refreshPauses();
}

void LiveWindows::restart()
{
    for (const auto& view : m_views)
        view->restart();
}

void LiveWindows::refreshPauses()
{
    for (const auto& view : m_views)
        view->setPaused(!m_arePlaying || !m_isSeen);
}

} // namespace tessel
