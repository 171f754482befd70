// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

namespace tessel {

/// What the session calls its desktop, the most particular name first; often inherited by another.
[[nodiscard]] inline QStringList sessionDesktops()
{
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'), Qt::SkipEmptyParts);
}

} // namespace tessel
