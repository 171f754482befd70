// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/desktops/xfce_pictures.h"

#include <QDBusArgument>
#include <QDBusVariant>

#include <algorithm>
#include <set>

namespace tessel {

namespace {

enum ImageStyle : int
{
    none = 0,
    zoomed = 5
};

/// What the X server says need not be so.
constexpr int mostWorkspaces = 100;

DesktopCalls::Method settingsMethod(const char* name)
{
    return {QStringLiteral("org.xfce.Xfconf"), QStringLiteral("/org/xfce/Xfconf"),
            QStringLiteral("org.xfce.Xfconf"), QString::fromLatin1(name)};
}

const QString channel = QStringLiteral("xfce4-desktop");

QString monitorFolder(const DesktopPicture& picture)
{
    return QStringLiteral("/backdrop/screen0/monitor%1/").arg(picture.screen.name);
}

/// The folders below a monitor's for all its workspaces: those there are now and those with settings of their
/// own, which come back when workspaces are added.
std::set<QString> workspaceFolders(const QString& monitor, const QVariantMap& settings, int workspaces)
{
    std::set<QString> folders;
    for (int i = 0; i < std::clamp(workspaces, 1, mostWorkspaces); ++i)
        folders.insert(QStringLiteral("%1workspace%2/").arg(monitor).arg(i));
    for (const QString& key : settings.keys()) {
        const QString folder = key.section(QLatin1Char('/'), 0, -2) + QLatin1Char('/');
        if (folder.startsWith(monitor + QStringLiteral("workspace")))
            folders.insert(folder);
    }
    return folders;
}

} // namespace

QStringList XfcePictures::apply(const std::vector<DesktopPicture>& pictures, Which which)
{
    QStringList failures;
    for (const DesktopPicture& picture : pictures) {
        try {
            apply(picture, which);
        } catch (const DesktopError& error) {
            failures << refusal(picture, error.reason);
        }
    }
    return failures;
}

bool XfcePictures::shows(const std::vector<DesktopPicture>& pictures)
{
    return std::ranges::all_of(pictures, [this](const DesktopPicture& picture) { return shows(picture); });
}

bool XfcePictures::shows(const DesktopPicture& picture)
{
    const QVariantMap now = settings(monitorFolder(picture));
    const std::set<QString> folders = workspaceFolders(monitorFolder(picture), now, m_workspaces);
    return std::ranges::all_of(folders, [&](const QString& folder) {
        return now.value(folder + QStringLiteral("last-image")) == picture.file;
    });
}

void XfcePictures::apply(const DesktopPicture& picture, Which which)
{
    const QString monitor = monitorFolder(picture);
    const QVariantMap before = settings(monitor);
    const std::set<QString> folders = workspaceFolders(monitor, before, m_workspaces);
    for (const QString& folder : folders) {
        const QString image = folder + QStringLiteral("last-image");
        const QString style = folder + QStringLiteral("image-style");
        if (which == Which::all || before.value(image) != picture.file)
            change(image, picture.file);
        // How pictures are scaled is the user's choice, unless none would be seen.
        if (before.value(style, zoomed) == none)
            change(style, zoomed);
    }
    if (!shows(picture))
        //: "it" is the desktop; behind a colon
        throw DesktopError{DesktopPictures::tr("its settings were changed at the same time, or are locked.")};
}

QVariantMap XfcePictures::settings(const QString& folder)
{
    // The settings of a folder that has none cannot be asked for, but for the uppermost.
    const QVariantList answer =
        m_calls.call(settingsMethod("GetAllProperties"), {channel, QStringLiteral("/")});
    auto found = qdbus_cast<QVariantMap>(answer.value(0));
    found.removeIf([&folder](const auto& setting) { return !setting.key().startsWith(folder); });
    return found;
}

void XfcePictures::change(const QString& setting, const QVariant& value)
{
    m_calls.call(settingsMethod("SetProperty"), {channel, setting, QVariant::fromValue(QDBusVariant(value))});
}

} // namespace tessel
