// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/notifications.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QGuiApplication>

namespace tessel {

namespace {

const QString service = QStringLiteral("org.freedesktop.Notifications");
const QString path = QStringLiteral("/org/freedesktop/Notifications");

/// The server decides how long a message stays.
constexpr int serversOwnTime = -1;

class DesktopNotifications : public Notifications
{
public:
    void show(const QString& title, const QString& text, std::function<void()> failed) override
    {
        QDBusMessage call = QDBusMessage::createMethodCall(service, path, service, QStringLiteral("Notify"));
        const QVariantMap hints{{QStringLiteral("desktop-entry"), QGuiApplication::desktopFileName()}};
        // The text may hold markup, the title not.
        call << QGuiApplication::applicationDisplayName() << 0U << QGuiApplication::desktopFileName() << title
             << text.toHtmlEscaped() << QStringList() << hints << serversOwnTime;
        auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, failed = std::move(failed)] {
            watcher->deleteLater();
            if (watcher->isError())
                failed();
        });
    }
};

} // namespace

std::unique_ptr<Notifications> makeNotifications()
{
    return std::make_unique<DesktopNotifications>();
}

} // namespace tessel
