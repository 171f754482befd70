// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/store.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

using namespace tessel;

/// Whatever a settings file holds: it is read, lists of presets and palettes too; a value that is written
/// into it is read back; and all the others stay what they were.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int argumentCount = 1;
    static char program[] = "fuzz";
    static char* arguments[] = {program, nullptr};
    static const QCoreApplication application(argumentCount, arguments); // for the threads of stores
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("settings"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        std::abort();
    file.write(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    file.close();

    const Store before({.settingsFile = path});
    const QByteArray bytes(reinterpret_cast<const char*>(data),
                           static_cast<qsizetype>(std::min<std::size_t>(size, 40)));
    if (const auto failure = writeSettings(path, {{"edge", 1}, {"tea", bytes}})) {
        std::fprintf(stderr, "%s\n", qPrintable(failure->message));
        std::abort();
    }
    const StoredSettings stored = readSettings(path);
    if (stored.values.at("edge").toString() != QLatin1String("1") ||
        stored.values.at("tea").toByteArray() != bytes) {
        std::fputs("what was written is not read\n", stderr);
        std::abort();
    }
    const Store after({.settingsFile = path});
    if (after.edge() != Edge::right || after.look() != before.look() || after.presets() != before.presets() ||
        after.customPalettes() != before.customPalettes() ||
        after.latestPictures() != before.latestPictures()) {
        std::fputs("another setting has changed\n", stderr);
        std::abort();
    }
    for (const QString& name : QDir(folder.path()).entryList(QDir::Files | QDir::Hidden))
        QFile::remove(folder.filePath(name));
    return 0;
}
