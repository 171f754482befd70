// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/settings_file.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

using namespace tessel;

/// Whatever a settings file holds: a value that is written into it is read back, and nobody hangs or crashes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const QTemporaryDir folder;
    // A name of its own each time: QSettings remembers what it has read under a name.
    static unsigned count = 0;
    const QString path = folder.filePath(QString::number(count++));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        std::abort();
    file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    file.close();

    const StoredSettings before = readSettings(path);
    const QByteArray bytes(reinterpret_cast<const char*>(data),
                           static_cast<qsizetype>(std::min<std::size_t>(size, 40)));
    if (const auto failure = writeSettings(path, {{"edge", 1}, {"look", bytes}})) {
        std::fprintf(stderr, "%s\n", qPrintable(failure->message));
        std::abort();
    }
    const StoredSettings after = readSettings(path);
    if (after.values.at("edge").toString() != QLatin1String("1") ||
        after.values.at("look").toByteArray() != bytes) {
        std::fputs("what was written is not read\n", stderr);
        std::abort();
    }
    for (const QString& name : QDir(folder.path()).entryList(QDir::Files | QDir::Hidden))
        QFile::remove(folder.filePath(name));
    return 0;
}
