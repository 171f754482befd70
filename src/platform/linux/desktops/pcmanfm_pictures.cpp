// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/desktops/pcmanfm_pictures.h"

#include "platform/linux/desktops/setting_lines.h"
#include "platform/linux/x11/x11_connection.h"
#include "platform/linux/x11/x11_desktop_owner.h"

#include <QEventLoop>
#include <QStandardPaths>
#include <QTimer>

#include <algorithm>

namespace tessel {

namespace {

/// What the desktop has been told is saved a little later.
constexpr std::chrono::milliseconds savingPace{100};
constexpr int mostLooks = 30;

/// Of the first monitor's pictures, below the folder of settings: they depend on the process that draws it.
QString settingsFile(X11Connection& connection, const QRect& monitor)
{
    const xcb_window_t window = desktopWindowAt(connection, monitor);
    const auto process = connection.property(window, "_NET_WM_PID", XCB_ATOM_CARDINAL);
    const QString profile = settingsProfile(process.empty() ? 0 : process.front());
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/pcmanfm/%1/desktop-items-0.conf").arg(profile);
}

QString setting(const QString& name, const QByteArray& key)
{
    for (const QByteArray& line : settingLines(name))
        if (line.startsWith(key + '='))
            return QString::fromUtf8(line.mid(key.size() + 1).replace("\\\\", "\\"));
    return {};
}

} // namespace

QStringList PcmanfmPictures::apply(const std::vector<DesktopPicture>& pictures, Which which)
{
    X11Connection connection;
    const std::vector<QRect> monitors =
        connection.isValid() ? monitorPlaces(connection) : std::vector<QRect>();
    QStringList failures;
    for (const DesktopPicture& picture : pictures) {
        // Its command changes the first monitor's picture, wherever the pointer is.
        const bool isFirst = !monitors.empty() && picture.screen.pixels() == monitors.front();
        try {
            if (!isFirst && pictures.size() > 1)
                //: "it" is the desktop; behind a colon
                throw DesktopError{DesktopPictures::tr("it lets programs set only its first monitor's.")};
            change(picture, settingsFile(connection, picture.screen.pixels()), which);
        } catch (const DesktopError& error) {
            failures << refusal(picture, error.reason);
        }
    }
    return failures;
}

bool PcmanfmPictures::shows(const std::vector<DesktopPicture>& pictures)
{
    X11Connection connection;
    const std::vector<QRect> monitors =
        connection.isValid() ? monitorPlaces(connection) : std::vector<QRect>();
    return std::ranges::all_of(pictures, [&](const DesktopPicture& picture) {
        const QRect monitor = picture.screen.pixels();
        return monitors.empty() || monitor != monitors.front() ||
               setting(settingsFile(connection, monitor), "wallpaper") == picture.file;
    });
}

void PcmanfmPictures::change(const DesktopPicture& picture, const QString& settings, Which which)
{
    const auto hasTaken = [&] { return setting(settings, "wallpaper") == picture.file; };
    // How pictures are scaled is the user's choice, unless none would be seen.
    const QString mode = setting(settings, "wallpaper_mode");
    const bool isSeen = !mode.isEmpty() && mode != QLatin1String("color");
    if (which == Which::different && isSeen && hasTaken())
        return;
    QStringList arguments{QStringLiteral("--set-wallpaper"), picture.file};
    if (!isSeen)
        arguments << QStringLiteral("--wallpaper-mode=stretch");
    m_calls.run(QStringLiteral("pcmanfm"), arguments);
    for (int i = 0; i < mostLooks && !hasTaken(); ++i) {
        QEventLoop loop;
        QTimer::singleShot(savingPace, &loop, &QEventLoop::quit);
        loop.exec();
    }
    if (!hasTaken())
        //: "it" is the desktop; behind a colon
        throw DesktopError{DesktopPictures::tr("its settings in %1 stay as they were.").arg(settings)};
}

} // namespace tessel
