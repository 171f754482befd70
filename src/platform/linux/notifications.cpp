// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/notifications.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QGuiApplication>

namespace tessel {

namespace {

const QString service = QStringLiteral("org.freedesktop.Notifications");
const QString path = QStringLiteral("/org/freedesktop/Notifications");

/// The server decides how long a message stays.
constexpr int serversOwnTime = -1;

} // namespace

void BusNotifications::show(const QString& title, const QString& text, std::function<void()> failed)
{
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, service, QStringLiteral("Notify"));
    const QVariantMap hints{{QStringLiteral("desktop-entry"), QGuiApplication::desktopFileName()}};
    // The text may hold markup, the title not.
    call << QGuiApplication::applicationDisplayName() << 0U << QGuiApplication::desktopFileName() << title
         << text.toHtmlEscaped() << QStringList() << hints << serversOwnTime;
    // Of a call on no bus nothing would ever be heard again.
    const QDBusPendingCall answer =
        m_bus.isConnected() ? m_bus.asyncCall(call, static_cast<int>(m_patience.count()))
                            : QDBusPendingCall::fromError(QDBusError(QDBusError::Disconnected, {}));
    auto* watcher = new QDBusPendingCallWatcher(answer, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, failed = std::move(failed)] {
        watcher->deleteLater();
        if (watcher->isError())
            failed();
    });
}

std::unique_ptr<Notifications> makeNotifications()
{
    return std::make_unique<BusNotifications>(QDBusConnection::sessionBus());
}

} // namespace tessel
