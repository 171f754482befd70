// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/plasma/plasma_frames.h"

#include "base/shown_frames.h"
#include "platform/linux/plasma/plasma_wallpaper_window.h"
#include "platform/sandbox.h"

#include <QFile>
#include <QLibraryInfo>
#include <QStandardPaths>

#include <utility>

namespace tessel {

bool hasPlasmaWallpaper()
{
    // Plasma is outside of a sandbox, and looks for modules where Qt does.
    return qEnvironmentVariableIntValue("KDE_SESSION_VERSION") >= 6 && !isSandboxed() &&
           QFile::exists(QLibraryInfo::path(QLibraryInfo::QmlImportsPath) +
                         QStringLiteral("/org/tesselbroth/wallpaper/qmldir")) &&
           !QStandardPaths::locate(
                QStandardPaths::GenericDataLocation,
                QStringLiteral("plasma/wallpapers/org.tesselbroth.wallpaper/metadata.json"))
                .isEmpty();
}

PlasmaFrames::PlasmaFrames(QDBusConnection bus) : m_bus(std::move(bus))
{
    m_bus.registerObject(shown_frames::objectPath, this, QDBusConnection::ExportScriptableContents);
}

PlasmaFrames::~PlasmaFrames()
{
    m_bus.unregisterObject(shown_frames::objectPath);
}

void PlasmaFrames::setWindow(const QString& screen, PlasmaWallpaperWindow* window)
{
    if (window == nullptr) {
        m_windows.erase(screen);
        return;
    }
    m_windows[screen] = window;
    Q_EMIT Changed(screen);
}

QDBusUnixFileDescriptor PlasmaFrames::Open(const QString& screen, QDBusUnixFileDescriptor& memory, int& width,
                                           int& height)
{
    const auto window = m_windows.find(screen);
    if (window == m_windows.end()) {
        sendErrorReply(QDBusError::InvalidArgs,
                       QStringLiteral("Nothing plays on a screen \"%1\".").arg(screen));
        return {};
    }
    const FileDescriptor socket = window->second->open();
    if (!socket.isOpen()) {
        sendErrorReply(QDBusError::NoMemory, QStringLiteral("There is no memory for frames."));
        return {};
    }
    const SharedPixels& pixels = *window->second->sharedPixels();
    memory.setFileDescriptor(pixels.file().get());
    width = pixels.size().width();
    height = pixels.size().height();
    return QDBusUnixFileDescriptor(socket.get());
}

} // namespace tessel
