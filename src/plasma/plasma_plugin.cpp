// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "plasma/wallpaper_frames.h"

#include <QQmlExtensionPlugin>

namespace tessel {

/// What Plasma's process loads for the wallpaper in package/.
class PlasmaPlugin : public QQmlExtensionPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QQmlExtensionInterface_iid)

public:
    void registerTypes(const char* uri) override
    {
        qmlRegisterType<WallpaperFrames>(uri, 1, 0, "WallpaperFrames");
    }
};

} // namespace tessel

#include "plasma_plugin.moc"
