// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/settling_screens.h"

#include <chrono>

namespace tessel {

namespace {

/// Within a burst of changes.
constexpr std::chrono::milliseconds longestPause{150};

} // namespace

SettlingScreens::SettlingScreens()
{
    m_burst.setSingleShot(true);
    m_burst.setInterval(longestPause);
    connect(&m_burst, &QTimer::timeout, this, [this] {
        update();
        Q_EMIT changed();
    });
}

} // namespace tessel
