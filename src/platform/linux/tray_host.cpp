// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/tray_host.h"

#include <QDBusConnection>

namespace tessel {

std::unique_ptr<TrayHost> watchTrayHost()
{
    auto host = std::make_unique<TrayHost>();
    QDBusConnection::sessionBus().connect(
        QStringLiteral("org.kde.StatusNotifierWatcher"), QStringLiteral("/StatusNotifierWatcher"),
        QStringLiteral("org.kde.StatusNotifierWatcher"), QStringLiteral("StatusNotifierHostRegistered"),
        host.get(), SIGNAL(appeared()));
    return host;
}

} // namespace tessel
