// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/desktops/lxqt_pictures.h"

#include "platform/linux/desktops/spanned_picture.h"

#include <QFile>
#include <QSettings>
#include <QStandardPaths>

namespace tessel {

namespace {

const QString service = QStringLiteral("org.pcmanfm.PCManFM");

/// The settings profile among a command line's arguments.
QString profile(const QList<QByteArray>& arguments)
{
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        if (arguments[i].startsWith("--profile="))
            return QString::fromLocal8Bit(arguments[i].mid(10));
        if ((arguments[i] == "--profile" || arguments[i] == "-p") && i + 1 < arguments.size())
            return QString::fromLocal8Bit(arguments[i + 1]);
    }
    return QStringLiteral("default");
}

/// \param file below the folders of settings: the user's own goes before the system's
QVariant setting(const QString& file, const char* key)
{
    const QString path = QStandardPaths::locate(QStandardPaths::GenericConfigLocation, file);
    return QSettings(path, QSettings::IniFormat).value(QLatin1String("Desktop/") + QLatin1String(key));
}

bool showsPictures(const QString& mode)
{
    static const QStringList modes{QStringLiteral("stretch"), QStringLiteral("fit"), QStringLiteral("center"),
                                   QStringLiteral("tile"), QStringLiteral("zoom")};
    return modes.contains(mode);
}

} // namespace

QStringList LxqtPictures::apply(const std::vector<DesktopPicture>& pictures, Which which)
{
    try {
        change(pictures, which);
    } catch (const DesktopError& error) {
        return refusals(pictures, error.reason);
    }
    return {};
}

void LxqtPictures::change(const std::vector<DesktopPicture>& pictures, Which which)
{
    const QString settings = settingsFile();
    // With one picture for each monitor it repeats the same one on all of them.
    const bool repeats = setting(settings, "PerScreenWallpaper").toBool();
    const QString problem = pictures.size() > 1 && !repeats ? writeSpanned(pictures) : QString();
    if (!problem.isEmpty())
        throw DesktopError{problem};
    const QString file = repeats ? pictures.front().file : spannedFile(pictures);
    // How pictures are scaled is the user's choice, unless none would be seen.
    const bool isSeen = showsPictures(setting(settings, "WallpaperMode").toString());
    if (which == Which::different && isSeen && setting(settings, "Wallpaper").toString() == file)
        return;
    m_calls.call({service, QStringLiteral("/Application"), QStringLiteral("org.pcmanfm.Application"),
                  QStringLiteral("setWallpaper")},
                 {file, isSeen ? QString() : QStringLiteral("stretch")});
    if (setting(settings, "Wallpaper").toString() != file)
        throw DesktopError{QStringLiteral("its settings in %1 stay as they were.").arg(settings)};
}

QString LxqtPictures::settingsFile()
{
    const QVariantList answer =
        m_calls.call({QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                      QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetConnectionUnixProcessID")},
                     {service});
    QFile commandLine(QStringLiteral("/proc/%1/cmdline").arg(answer.value(0).toUInt()));
    const bool opened = commandLine.open(QIODevice::ReadOnly);
    const QList<QByteArray> arguments = opened ? commandLine.readAll().split('\0') : QList<QByteArray>();
    return QStringLiteral("pcmanfm-qt/%1/settings.conf").arg(profile(arguments));
}

} // namespace tessel
