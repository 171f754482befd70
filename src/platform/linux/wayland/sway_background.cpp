// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/wayland/sway_background.h"

#include <QProcess>
#include <QStringList>

namespace tessel {

namespace {

/// A word of sway's commands, whatever is in it.
QString quoted(QString word)
{
    word.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
    word.replace(QLatin1Char('"'), QStringLiteral("\\\""));
    return QLatin1Char('"') + word + QLatin1Char('"');
}

} // namespace

void setSwayBackground(const QString& monitor, const QString& file)
{
    const QStringList background = file.isEmpty()
                                       ? QStringList{QStringLiteral("#000000"), QStringLiteral("solid_color")}
                                       : QStringList{quoted(file), QStringLiteral("fill")};
    // Where the command cannot be given all stays as it is, and is seen to be so.
    QProcess::startDetached(
        QStringLiteral("swaymsg"),
        QStringList{QStringLiteral("-q"), QStringLiteral("output"), quoted(monitor), QStringLiteral("bg")} +
            background);
}

} // namespace tessel
