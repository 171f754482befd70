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

const QString markup = QStringLiteral("body-markup");

/// The server decides how long a message stays.
constexpr int serversOwnTime = -1;

} // namespace

/// Some servers show the text as it is, others read it as markup and say so.
void BusNotifications::show(const QString& title, const QString& text, std::function<void()> failed)
{
    ask(QDBusMessage::createMethodCall(service, path, service, QStringLiteral("GetCapabilities")), failed,
        [this, title, text, failed](const QDBusMessage& answer) {
            const bool isMarkup = answer.arguments().value(0).toStringList().contains(markup);
            send(title, isMarkup ? text.toHtmlEscaped() : text, failed);
        });
}

void BusNotifications::send(const QString& title, const QString& text, const std::function<void()>& failed)
{
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, service, QStringLiteral("Notify"));
    const QVariantMap hints{{QStringLiteral("desktop-entry"), QGuiApplication::desktopFileName()}};
    call << QGuiApplication::applicationDisplayName() << 0U << QGuiApplication::desktopFileName() << title
         << text << QStringList() << hints << serversOwnTime;
    ask(call, failed, [this](const QDBusMessage& /*answer*/) { Q_EMIT shown(); });
}

void BusNotifications::ask(const QDBusMessage& call, std::function<void()> failed,
                           std::function<void(const QDBusMessage& answer)> answered)
{
    // Of a call on no bus nothing would ever be heard again.
    const QDBusPendingCall answer =
        m_bus.isConnected() ? m_bus.asyncCall(call, static_cast<int>(m_patience.count()))
                            : QDBusPendingCall::fromError(QDBusError(QDBusError::Disconnected, {}));
    auto* watcher = new QDBusPendingCallWatcher(answer, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [watcher, failed = std::move(failed), answered = std::move(answered)] {
                watcher->deleteLater();
                if (watcher->isError())
                    failed();
                else
                    answered(watcher->reply());
            });
}

std::unique_ptr<Notifications> makeNotifications()
{
    return std::make_unique<BusNotifications>(QDBusConnection::sessionBus());
}

} // namespace tessel
