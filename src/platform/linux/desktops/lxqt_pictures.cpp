// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/desktops/lxqt_pictures.h"

#include "base/ini_value.h"
#include "platform/linux/desktops/setting_lines.h"
#include "platform/linux/desktops/spanned_picture.h"

#include <QStandardPaths>

namespace tessel {

namespace {

const QString service = QStringLiteral("org.pcmanfm.PCManFM");

/// Of the group "Desktop"; invalid if there is none.
/// \param file below the folders of settings: the user's own goes before the system's
QVariant setting(const QString& file, const QByteArray& key)
{
    QVariant found;
    bool isOfDesktop = false;
    for (const QByteArray& line :
         settingLines(QStandardPaths::locate(QStandardPaths::GenericConfigLocation, file))) {
        const QByteArray entry = line.trimmed();
        if (entry.startsWith('['))
            isOfDesktop = entry == "[Desktop]";
        else if (isOfDesktop && entry.startsWith(key + '='))
            found = iniValue(QByteArrayView(entry).sliced(key.size() + 1));
    }
    return found;
}

/// With one picture for each monitor it repeats the same one on all of them.
QString fileFor(const std::vector<DesktopPicture>& pictures, const QString& settings)
{
    const bool repeats = setting(settings, "PerScreenWallpaper").toBool();
    return repeats ? pictures.front().file : spannedFile(pictures);
}

bool showsPictures(const QString& mode)
{
    static const QStringList modes{QStringLiteral("stretch"), QStringLiteral("fit"), QStringLiteral("center"),
                                   QStringLiteral("tile"), QStringLiteral("zoom")};
    return modes.contains(mode);
}

} // namespace

bool LxqtPictures::shows(const std::vector<DesktopPicture>& pictures)
{
    const QString settings = settingsFile();
    return setting(settings, "Wallpaper").toString() == fileFor(pictures, settings);
}

QStringList LxqtPictures::apply(const std::vector<DesktopPicture>& pictures, Which which)
{
    const QString settings = settingsFile();
    const QString file = fileFor(pictures, settings);
    const QString problem = file != pictures.front().file ? writeSpanned(pictures) : QString();
    if (!problem.isEmpty())
        throw DesktopError{problem};
    // How pictures are scaled is the user's choice, unless none would be seen.
    const bool isSeen = showsPictures(setting(settings, "WallpaperMode").toString());
    if (which == Which::different && isSeen && setting(settings, "Wallpaper").toString() == file)
        return {};
    m_calls.call({service, QStringLiteral("/Application"), QStringLiteral("org.pcmanfm.Application"),
                  QStringLiteral("setWallpaper")},
                 {file, isSeen ? QString() : QStringLiteral("stretch")});
    if (setting(settings, "Wallpaper").toString() != file)
        //: "it" is the desktop; behind a colon
        throw DesktopError{DesktopPictures::tr("its settings in %1 stay as they were.").arg(settings)};
    return {};
}

QString LxqtPictures::settingsFile()
{
    const QVariantList answer =
        m_calls.call({QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                      QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetConnectionUnixProcessID")},
                     {service});
    return QStringLiteral("pcmanfm-qt/%1/settings.conf").arg(settingsProfile(answer.value(0).toUInt()));
}

} // namespace tessel
