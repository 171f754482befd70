// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/live_windows.h"

#include <algorithm>

namespace tessel {

LiveWindows::LiveWindows(const WallpaperEnvironment& environment, Scene& scene)
    : m_environment(environment)
    , m_scene(scene)
{
    m_appearing.setSingleShot(true);
    m_appearing.setInterval(m_environment.delays.appearing);
    connect(&m_appearing, &QTimer::timeout, this, &LiveWindows::hide);
    connect(&m_environment.windows.screens(), &Screens::changed, this, &LiveWindows::followScreens);
    connect(&m_environment.session, &Session::changed, this, &LiveWindows::refreshPauses);
    connect(&m_environment.session, &Session::woke, this, &LiveWindows::restart);
    followScreens();
}

void LiveWindows::show()
{
    setScreens(m_environment.windows.screens().list());
    m_appearing.stop();
    m_scene.show(sizes());
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

std::vector<ViewSize> LiveWindows::sizes() const
{
    std::vector<ViewSize> sizes;
    for (const Screen& screen : m_environment.windows.screens().list())
        sizes.push_back({screen.pixels().size()});
    return sizes;
}

bool LiveWindows::areOn(const std::vector<Screen>& screens) const
{
    return std::ranges::equal(m_screens, screens, &Screen::isSamePlace);
}

/// None is touched as long as the screens are the same.
void LiveWindows::setScreens(const std::vector<Screen>& screens)
{
    if (areOn(screens))
        return;
    m_screens = screens;
    m_windows.clear();
    Graphics& graphics = m_environment.graphics;
    for (const Screen& screen : screens) {
        std::unique_ptr<WallpaperWindow> window =
            m_environment.windows.makeWallpaperWindow(screen, graphics.rasterizer());
        if (window == nullptr)
            continue;
        auto view = std::make_unique<PassthroughView>(*window, m_scene, graphics);
        m_windows.push_back({std::move(window), std::move(view)});
    }
}

void LiveWindows::followScreens()
{
    int longest = 0;
    for (const ViewSize& view : sizes())
        longest = std::max({longest, view.pixels.width(), view.pixels.height()});
    m_environment.graphics.setLongestScreen(longest);
    // Where they are the same, windows that are about to be hidden still are.
    if (m_arePlaying && !areOn(m_environment.windows.screens().list()))
        show();
}

/// Draws at once: a sleep may have ended the asking for frames.
void LiveWindows::restart()
{
    for (const LiveWindow& each : m_windows)
        each.view->restart();
}

void LiveWindows::refreshPauses()
{
    const bool isSeen = !m_environment.session.state().unseen();
    for (const LiveWindow& each : m_windows)
        each.view->setPaused(!m_arePlaying || !isSeen);
}

} // namespace tessel
