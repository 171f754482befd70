// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/qt_screens.h"

#include <QGuiApplication>
#include <QScreen>

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
    for (const QScreen* screen : QGuiApplication::screens()) {
        // Qt fills in for a missing monitor.
        if (!screen->geometry().isEmpty())
            screens.push_back({.name = screen->name(),
                               .frame = screen->geometry(),
                               .scale = screen->devicePixelRatio(),
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
