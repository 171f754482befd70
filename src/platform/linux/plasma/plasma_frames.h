// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusUnixFileDescriptor>
#include <QObject>

#include <map>

namespace tessel {

class PlasmaWallpaperWindow;

/// Whether Plasma has our wallpaper, the piece of ours that shows frames behind the desktop's icons
/// (src/plasma). To be asked for in Plasma's session.
[[nodiscard]] bool hasPlasmaWallpaper();

/// Where Plasma's own process asks for what plays.
class PlasmaFrames : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.tesselbroth.Frames")

public:
    explicit PlasmaFrames(QDBusConnection bus);
    ~PlasmaFrames() override;

    [[nodiscard]] const QDBusConnection& bus() const { return m_bus; }

    /// From now on that window has the frames of the screen; nullptr for none any more.
    void setWindow(const QString& screen, PlasmaWallpaperWindow* window);

    // The names are the bus's.
    Q_SCRIPTABLE QDBusUnixFileDescriptor Open(const QString& screen, QDBusUnixFileDescriptor& memory,
                                              int& width, int& height);

Q_SIGNALS:
    Q_SCRIPTABLE void Changed(const QString& screen);

private:
    QDBusConnection m_bus;
    std::map<QString, PlasmaWallpaperWindow*> m_windows; ///< by the screens' names
};

} // namespace tessel
