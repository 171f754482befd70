// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/photos.h"

#include "base/data_folder.h"
#include "base/file_writer.h"
#include "render/photo.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUuid>

#include <span>

namespace tessel {

namespace {

constexpr qint64 chunk = qint64{1} << 20;

/// Large enough for any picture to be recognised, small enough to be quick.
constexpr int trialSide = 256;

QString translated(const char* text)
{
    return QCoreApplication::translate("Photos", text);
}

[[nodiscard]] FileError failure(const QString& text)
{
    return {FileError::Code::unknown, text.toStdString()};
}

void requirePicture(const QString& file)
{
    try {
        static_cast<void>(readPhoto(file.toStdString(), trialSide));
    } catch (const PhotoError& error) {
        throw failure(
            translated(
                QT_TRANSLATE_NOOP("Photos",
                                  "\"%1\" cannot be used: %2. Choose a picture file, such as a JPEG or PNG."))
                .arg(file, QString::fromUtf8(error.what())));
    }
}

void requireFolder(const QString& folder)
{
    if (!QDir().mkpath(folder))
        throw failure(
            translated(QT_TRANSLATE_NOOP(
                           "Photos", "The folder \"%1\" cannot be made. It must be possible to write there."))
                .arg(folder));
    if (!QFileInfo(folder).isWritable())
        throw FileError(FileError::Code::noPermission,
                        translated(QT_TRANSLATE_NOOP("Photos", "The folder \"%1\" cannot be written to."))
                            .arg(folder)
                            .toStdString());
}

/// The suffix as far as it is an ordinary one, with its dot.
QString ordinarySuffix(const QString& file)
{
    static const QRegularExpression ordinary(QStringLiteral("^[A-Za-z0-9]{1,8}$"));
    const QString suffix = QFileInfo(file).suffix();
    return ordinary.match(suffix).hasMatch() ? QLatin1Char('.') + suffix : QString();
}

void copyBytes(QFile& from, FileWriter& to)
{
    while (!from.atEnd()) {
        const QByteArray bytes = from.read(chunk);
        if (bytes.isEmpty())
            throw failure(translated(QT_TRANSLATE_NOOP("Photos", "\"%1\" cannot be read: %2"))
                              .arg(from.fileName(), from.errorString()));
        to.write(std::as_bytes(std::span(bytes)));
    }
}

/// Whether a file has a name that copyPhoto() gives.
bool isCopy(const QFileInfo& file)
{
    return !QUuid::fromString(file.completeBaseName()).isNull();
}

} // namespace

QString defaultPhotoFolder()
{
    return dataFolder() + QStringLiteral("/Photos");
}

QString copyPhoto(const QString& file, const QString& folder)
{
    requirePicture(file);
    requireFolder(folder);
    QFile original(file);
    if (!original.open(QIODevice::ReadOnly))
        throw failure(translated(QT_TRANSLATE_NOOP("Photos", "\"%1\" cannot be read: %2"))
                          .arg(file, original.errorString()));
    const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces) + ordinarySuffix(file);
    QString path = QDir(folder).filePath(name);
    FileWriter copy(path.toStdString());
    copyBytes(original, copy);
    copy.commit();
    return path;
}

std::optional<std::set<QString>> photosInUse(const Store& store)
{
    if (!store.problems().empty())
        return std::nullopt;
    std::set<QString> photos;
    const auto add = [&](const Look& look) {
        if (look.imagePath)
            photos.insert(QFileInfo(QString::fromStdString(*look.imagePath)).fileName());
    };
    add(store.look());
    if (store.desktop())
        add(*store.desktop());
    for (const Look& look : store.history())
        add(look);
    for (const Look& look : store.undone())
        add(look);
    for (const Look& look : store.desktopHistory())
        add(look);
    for (const Preset& preset : store.presets())
        add(preset.look);
    return photos;
}

void removePhotos(const QString& folder, const std::set<QString>& inUse, const QDateTime& madeBefore)
{
    for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files | QDir::NoSymLinks))
        if (isCopy(file) && !inUse.contains(file.fileName()) && file.lastModified() < madeBefore)
            QFile::remove(file.filePath());
}

} // namespace tessel
