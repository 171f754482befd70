// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/tray_host.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <limits>

namespace tessel {

namespace {

const auto watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");
const auto watcherPath = QStringLiteral("/StatusNotifierWatcher");

class LinuxTrayHost final : public TrayHost
{
public:
    LinuxTrayHost()
    {
        QDBusConnection bus = QDBusConnection::sessionBus();
        auto ping = QDBusMessage::createMethodCall(
            watcherName, watcherPath, QStringLiteral("org.freedesktop.DBus.Peer"), QStringLiteral("Ping"));
        ping.setAutoStartService(false);
        // The bus itself answers where nobody has that name, or its owner goes.
        const auto* answer =
            new QDBusPendingCallWatcher(bus.asyncCall(ping, std::numeric_limits<int>::max()), this);
        connect(answer, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* call) {
            call->deleteLater();
            m_isKnown = true;
            followHosts();
            Q_EMIT changed();
        });
    }

    [[nodiscard]] bool isKnown() const override { return m_isKnown; }

private:
    /// Not before the watcher has answered: `changed` would be heard as its answer.
    void followHosts()
    {
        QDBusConnection::sessionBus().connect(watcherName, watcherPath, watcherName,
                                              QStringLiteral("StatusNotifierHostRegistered"), this,
                                              SIGNAL(changed()));
    }

    bool m_isKnown = false;
};

} // namespace

std::unique_ptr<TrayHost> watchTrayHost()
{
    return std::make_unique<LinuxTrayHost>();
}

} // namespace tessel
