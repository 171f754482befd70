// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

namespace tessel {

/// "Tessel Broth/Wallpapers" below the user's data home.
[[nodiscard]] QString defaultWallpaperFolder();

/// The name of the still of screen `index`: "wall-", milliseconds since 1970 in fourteen digits, and the
/// index. All screens of one still share its time.
[[nodiscard]] QString stillFileName(qint64 milliseconds, int index);

/// Removes the oldest stills of a folder: those beyond four for each of `screens` screens, but none of the
/// paths in `inUse`. Those that are dated later than `now`, by a clock that was wrong, are the oldest. What
/// cannot be removed stays.
void pruneStills(const QString& folder, int screens, const QStringList& inUse,
                 const QDateTime& now = QDateTime::currentDateTime());

} // namespace tessel
