// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/qt_screens.h"

#include <QGuiApplication>
#include <QScreen>
#include <qpa/qplatformscreen.h>

namespace tessel {

QtScreens::QtScreens(Layout layout) : m_layout(layout)
{
    for (const QScreen* screen : QGuiApplication::screens())
        watch(screen);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &QtScreens::watch);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &QtScreens::noteChange);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &QtScreens::noteChange);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &QtScreens::noteChange);
}

std::vector<Screen> QtScreens::list() const
{
    std::vector<Screen> screens;
    // Qt's points may be larger than the display server's, which do not lie side by side then.
    const bool isServers = m_layout == Layout::points;
    for (const QScreen* screen : QGuiApplication::screens()) {
        // Qt fills in for a missing monitor.
        if (!screen->geometry().isEmpty())
            screens.push_back({.name = screen->name(),
                               .frame = isServers ? screen->handle()->geometry() : screen->geometry(),
                               .scale = screen->devicePixelRatio() / (isServers ? pointScale() : 1),
                               .workArea = screen->availableGeometry(),
                               .isPrimary = screen == QGuiApplication::primaryScreen(),
                               .layout = m_layout});
    }
    return screens;
}

void QtScreens::watch(const QScreen* screen)
{
    connect(screen, &QScreen::geometryChanged, this, &QtScreens::noteChange);
    connect(screen, &QScreen::availableGeometryChanged, this, &QtScreens::noteChange);
    // Qt tells a new scale only by the resolution that follows from it.
    connect(screen, &QScreen::logicalDotsPerInchChanged, this, &QtScreens::noteChange);
    connect(screen, &QScreen::physicalDotsPerInchChanged, this, &QtScreens::noteChange);
}

} // namespace tessel
