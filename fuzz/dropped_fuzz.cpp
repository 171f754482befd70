// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/file_error.h"
#include "editor/look_reader.h"
#include "render/photo.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QtEndian>
#include <libdeflate.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace tessel;

/// Gives the chunks of a PNG file the check sums that they should have, which no fuzzer would find.
void mendCheckSums(QByteArray& png)
{
    qsizetype at = 8;
    while (png.startsWith("\x89PNG") && at + 12 <= png.size()) {
        char* const chunk = png.data() + at;
        const auto length = qFromBigEndian<std::uint32_t>(chunk);
        if (length > static_cast<std::uint64_t>(png.size() - at - 12))
            return;
        const std::uint32_t sum = libdeflate_crc32(0, chunk + 4, length + 4);
        qToBigEndian(sum, chunk + 8 + length);
        at += 12 + static_cast<qsizetype>(length);
    }
}

void check(const CopiedPhoto& photo)
{
    constexpr int side = 300;
    const QImage read = readPhoto(photo.path.toStdString(), side);
    if (read.isNull() || std::max(read.width(), read.height()) > side) {
        std::fprintf(stderr, "A photo became one of %dx%d.\n", read.width(), read.height());
        std::abort();
    }
    if (!QFile::remove(photo.path))
        std::abort();
}

} // namespace

/// The input is dropped, or chosen as a photo: what is copied can be read, what is refused leaves no copy.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int argumentCount = 1;
    static char name[] = "fuzz";
    static char* arguments[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(argumentCount, arguments);
    static const QTemporaryDir folder;
    const QString photos = folder.filePath(QStringLiteral("photos"));
    QFile file(folder.filePath(QStringLiteral("dropped")));
    if (!file.open(QIODevice::WriteOnly))
        std::abort();
    QByteArray input(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    mendCheckSums(input);
    file.write(input);
    file.close();
    try {
        const Found found = readLookFile(file.fileName(), photos);
        if (const auto* photo = std::get_if<CopiedPhoto>(&found))
            check(*photo);
    } catch (const FileError&) {
    } catch (const PhotoError&) {
    }
    if (!QDir(photos).isEmpty(QDir::Files | QDir::Hidden)) {
        std::fputs("Something was left.\n", stderr);
        std::abort();
    }
    return 0;
}
