// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/look_reader.h"

#include "base/file_error.h"
#include "model/json_reader.h"
#include "model/look_json.h"
#include "render/png_file.h"
#include "wallpaper/photos.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <optional>

namespace tessel {

namespace {

struct LookReader
{
    Q_DECLARE_TR_FUNCTIONS(LookReader)
};

constexpr const char* pngSignature = "\x89PNG\r\n\x1A\n";

/// The look in a PNG file; none if it is a picture like others.
std::optional<Found> lookInPng(const QString& file)
{
    try {
        if (const auto json = readLookText(file.toStdString()))
            return readLookJson(QByteArray::fromStdString(*json));
        return std::nullopt;
    } catch (const FileError& error) {
        return NoLook{QString::fromUtf8(error.what())};
    }
}

/// Whether a file begins as the text of a look does.
bool beginsAsLook(QFile& file)
{
    constexpr qint64 enough = 256;
    return isMeantAsLook(QString::fromUtf8(file.peek(enough)));
}

} // namespace

bool isMeantAsLook(const QString& text)
{
    // Some programs begin with it what they save; whoever reads JSON passes over it, and so do we.
    const bool isMarked = text.startsWith(QChar(QChar::ByteOrderMark));
    return QStringView(text).sliced(isMarked ? 1 : 0).trimmed().startsWith(QLatin1Char('{'));
}

Found readLookJson(const QByteArray& json)
{
    if (json.size() > static_cast<qsizetype>(maxLookText))
        return NoLook{LookReader::tr("The text is too long to be one.")};
    try {
        return decodeLook({json.constData(), static_cast<std::size_t>(json.size())});
    } catch (const JsonError& error) {
        return NoLook{QString::fromUtf8(error.what())};
    }
}

Found readLookFile(const QString& file, const QString& photoFolder)
{
    QFile opened(file);
    // What cannot be opened is told by what copies it; what is no ordinary file might keep us waiting.
    if (QFileInfo(file).isFile() && opened.open(QIODevice::ReadOnly)) {
        if (opened.peek(8) == pngSignature) {
            if (std::optional<Found> found = lookInPng(file))
                return *std::move(found);
        } else if (beginsAsLook(opened)) {
            return readLookJson(opened.read(static_cast<qint64>(maxLookText) + 1));
        }
    }
    return CopiedPhoto{copyPhoto(file, photoFolder)};
}

Found readLookPng(const QByteArray& png, const QString& photoFolder)
{
    QTemporaryFile file;
    file.setFileTemplate(file.fileTemplate() + QStringLiteral(".png"));
    if (!file.open() || file.write(png) != png.size() || !file.flush())
        throw FileError(FileError::Code::unknown, LookReader::tr("\"%1\" cannot be written: %2")
                                                      .arg(file.fileName(), file.errorString())
                                                      .toStdString());
    return readLookFile(file.fileName(), photoFolder);
}

} // namespace tessel
