// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/desktops/spanned_picture.h"

#include "base/file_writer.h"
#include "base/picture_limit.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QRegularExpression>

#include <algorithm>
#include <limits>
#include <span>

namespace tessel {

namespace {

/// Where the monitors lie in the spanned picture.
std::vector<QRect> places(const std::vector<DesktopPicture>& pictures)
{
    double scale = 1;
    for (const DesktopPicture& picture : pictures)
        scale = std::max(scale, picture.screen.scale);
    std::vector<QRect> rectangles;
    for (const DesktopPicture& picture : pictures) {
        const QRect& frame = picture.screen.frame;
        rectangles.push_back(
            picture.screen.layout == Layout::points
                ? QRect((QPointF(frame.topLeft()) * scale).toPoint(), (QSizeF(frame.size()) * scale).toSize())
                : picture.screen.pixels());
    }
    return rectangles;
}

/// The newest time in the names of the files, as it stands there.
QString stamp(const std::vector<DesktopPicture>& pictures)
{
    static const QRegularExpression digits(QStringLiteral("\\d+"));
    QString newest;
    for (const DesktopPicture& picture : pictures)
        newest = std::max(newest, digits.match(QFileInfo(picture.file).fileName()).captured());
    return newest;
}

QByteArray contentHash(const std::vector<DesktopPicture>& pictures)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    const std::vector<QRect> rectangles = places(pictures);
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        const QRect& rectangle = rectangles[i];
        hash.addData(QStringLiteral("%1 %2 %3 %4 %5\n")
                         .arg(rectangle.x())
                         .arg(rectangle.y())
                         .arg(rectangle.width())
                         .arg(rectangle.height())
                         .arg(pictures[i].file)
                         .toUtf8());
    }
    return hash.result().toHex().left(8);
}

/// \return what went wrong; empty if nothing did
QString compose(const std::vector<DesktopPicture>& pictures, QImage& whole)
{
    const std::vector<QRect> rectangles = places(pictures);
    QRect bounds;
    for (const QRect& rectangle : rectangles)
        bounds |= rectangle;
    whole = QImage(bounds.size(), QImage::Format_RGB32);
    if (whole.isNull())
        return DesktopPictures::tr("there is not enough memory for a picture of %1x%2.")
            .arg(bounds.width())
            .arg(bounds.height());
    whole.fill(Qt::black);
    limitPictures();
    QPainter painter(&whole);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        QImageReader reader(pictures[i].file);
        const QImage part = reader.read();
        if (part.isNull())
            return DesktopPictures::tr("the file %1 cannot be read: %2.")
                .arg(pictures[i].file, reader.errorString());
        painter.drawImage(rectangles[i].translated(-bounds.topLeft()), part);
    }
    return {};
}

/// Whether a file has a name that spannedFile() gives. All others are somebody else's.
bool isSpanned(const QFileInfo& file)
{
    static const QRegularExpression form(QStringLiteral("^span-\\d{14}-[0-9a-f]{8}\\.png$"));
    return form.match(file.fileName()).hasMatch();
}

/// Keeps the newest but one beside the newest itself. What a clock that was wrong has dated later goes first.
void removeOlder(const QFileInfo& newest)
{
    QFileInfoList others = newest.dir().entryInfoList(QDir::Files | QDir::NoSymLinks);
    others.removeIf([&](const QFileInfo& file) { return !isSpanned(file) || file == newest; });
    const auto age = [now = newest.lastModified()](const QFileInfo& file) {
        const qint64 milliseconds = file.lastModified().msecsTo(now);
        return milliseconds < 0 ? std::numeric_limits<qint64>::max() : milliseconds;
    };
    std::ranges::sort(others, {}, age);
    for (const QFileInfo& file : others.mid(1))
        QFile::remove(file.filePath());
}

} // namespace

QString spannedFile(const std::vector<DesktopPicture>& pictures)
{
    if (pictures.size() == 1)
        return pictures.front().file;
    const QDir folder = QFileInfo(pictures.front().file).dir();
    return folder.filePath(
        QStringLiteral("span-%1-%2.png").arg(stamp(pictures), QString::fromLatin1(contentHash(pictures))));
}

QString writeSpanned(const std::vector<DesktopPicture>& pictures)
{
    const QString name = spannedFile(pictures);
    if (QFileInfo::exists(name))
        return {};
    QImage whole;
    QString problem = compose(pictures, whole);
    if (!problem.isEmpty())
        return problem;
    // Little compression: it is there for a short while, and the desktop waits for it.
    static constexpr int quickly = 85;
    QByteArray png;
    QBuffer buffer(&png);
    if (!whole.save(&buffer, "PNG", quickly))
        return DesktopPictures::tr("there is not enough memory to write the file %1.").arg(name);
    try {
        writeFile(name.toStdString(), std::as_bytes(std::span(png)));
    } catch (const FileError& error) {
        return QString::fromUtf8(error.what()) + QLatin1Char('.');
    }
    removeOlder(QFileInfo(name));
    return {};
}

} // namespace tessel
