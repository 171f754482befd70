// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/wallpaper_folder.h"

#include "base/data_folder.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>

namespace tessel {

namespace {

constexpr int generationsKept = 4;

/// Whether a file has a name that stillFileName() gives. All others are somebody else's.
bool isStill(const QString& name)
{
    static const QRegularExpression form(QStringLiteral("^wall-\\d{14}-\\d+\\.png$"));
    return form.match(name).hasMatch();
}

qint64 timeOf(const QString& name)
{
    return name.section(QLatin1Char('-'), 1, 1).toLongLong();
}

} // namespace

QString defaultWallpaperFolder()
{
    return dataFolder() + QStringLiteral("/Wallpapers");
}

QString stillFileName(qint64 milliseconds, int index)
{
    return QString::asprintf("wall-%014lld-%d.png", milliseconds, index);
}

void pruneStills(const QString& folder, int screens, const QStringList& inUse, const QDateTime& now)
{
    QDir directory(folder);
    QStringList names = directory.entryList({QStringLiteral("wall-*")}, QDir::Files | QDir::NoSymLinks);
    names.removeIf([](const QString& name) { return !isStill(name); });
    std::ranges::stable_sort(names, std::ranges::greater(), [&now](const QString& name) {
        const qint64 time = timeOf(name);
        return time > now.toMSecsSinceEpoch() ? 0 : time;
    });
    const qsizetype kept = qsizetype{std::max(screens, 1)} * generationsKept;
    for (const QString& name : names.mid(std::min(kept, names.size())))
        if (!inUse.contains(directory.filePath(name)))
            directory.remove(name);
}

} // namespace tessel
