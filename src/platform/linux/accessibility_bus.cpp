// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/accessibility_bus.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <chrono>
#include <cstdio>

namespace tessel {

void avoidStuckAccessibility()
{
    static constexpr std::chrono::milliseconds longestAnswer = std::chrono::seconds(1);
    const QString connection = QStringLiteral("accessibility");
    QDBusMessage answer;
    {
        const QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connection);
        auto ping = QDBusMessage::createMethodCall(
            QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
            QStringLiteral("org.freedesktop.DBus.Peer"), QStringLiteral("Ping"));
        ping.setAutoStartService(false);
        answer = bus.call(ping, QDBus::Block, static_cast<int>(longestAnswer.count()));
    }
    QDBusConnection::disconnectFromBus(connection);
    if (QDBusError(answer).type() != QDBusError::NoReply)
        return;
    std::fputs(
        "tessel-broth: The accessibility bus does not answer. Screen readers see nothing of Tessel Broth "
        "until it is started again.\n",
        stderr);
    qputenv("AT_SPI_BUS_ADDRESS", "unix:path=/dev/null"); // Qt asks nobody then, and finds nothing there
}

} // namespace tessel
