// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/settling_screens.h"

#include <chrono>
#include <private/qhighdpiscaling_p.h>
#include <utility>

namespace tessel {

namespace {

/// Within a burst of changes.
constexpr std::chrono::milliseconds longestPause{150};

/// By which Qt has made its points larger at the start.
double scaleOfEnvironment()
{
    bool isNumber = false;
    const double scale = qEnvironmentVariable("QT_SCALE_FACTOR").toDouble(&isNumber);
    return isNumber && scale > 0 ? scale : 1;
}

} // namespace

SettlingScreens::SettlingScreens() : m_pointScale(scaleOfEnvironment())
{
    m_burst.setSingleShot(true);
    m_burst.setInterval(longestPause);
    connect(&m_burst, &QTimer::timeout, this, [this] {
        update();
        Q_EMIT changed();
    });
}

/// By what Qt offers for this at the start only, with a warning later. What is shown again has the new scale.
void SettlingScreens::setPointScale(double scale)
{
    scale *= scaleOfEnvironment();
    if (scale == std::exchange(m_pointScale, scale))
        return;
    QHighDpiScaling::setGlobalFactor(scale);
    noteChange();
}

} // namespace tessel
