// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/bus_service.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

#include <utility>

namespace tessel {

BusService::BusService(QDBusConnection bus, const QString& name, QObject* parent)
    : QObject(parent)
    , m_bus(std::move(bus))
{
    if (!m_bus.isConnected())
        return;
    const auto* watcher =
        new QDBusServiceWatcher(name, m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& owner) { setOwner(owner); });

    auto question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetNameOwner"));
    question << name;
    const auto* answer = new QDBusPendingCallWatcher(m_bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* call) {
        const QDBusPendingReply<QString> owner = *call;
        call->deleteLater();
        if (owner.isValid())
            setOwner(owner.value());
    });
}

void BusService::setOwner(const QString& owner)
{
    if (owner == m_owner)
        return;
    if (!m_owner.isEmpty()) {
        for (const Heard& heard : std::exchange(m_heard, {})) {
            m_bus.disconnect(m_owner, heard.path, heard.interface, heard.member, this,
                             SLOT(receive(QDBusMessage)));
        }
        m_owner.clear();
        Q_EMIT vanished();
    }
    m_owner = owner;
    if (!m_owner.isEmpty())
        Q_EMIT appeared();
}

void BusService::listen(const QString& path, const QString& interface, const QString& member)
{
    // Connecting to the unique name spares Qt from asking the bus, and from waiting, for the owner.
    if (!m_owner.isEmpty() &&
        m_bus.connect(m_owner, path, interface, member, this, SLOT(receive(QDBusMessage))))
        m_heard.push_back({path, interface, member});
}

void BusService::call(const QString& path, const QString& interface, const QString& method,
                      const QVariantList& arguments, std::function<void(const QDBusMessage&)> done,
                      std::function<void()> failed)
{
    if (m_owner.isEmpty())
        return;
    auto question = QDBusMessage::createMethodCall(m_owner, path, interface, method);
    question.setArguments(arguments);
    const auto* answer = new QDBusPendingCallWatcher(m_bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this,
            [done = std::move(done), failed = std::move(failed)](QDBusPendingCallWatcher* call) {
                call->deleteLater();
                if (!call->isError())
                    done(call->reply());
                else if (failed)
                    failed();
            });
}

void BusService::property(const QString& path, const QString& interface, const QString& name,
                          std::function<void(const QVariant&)> done)
{
    call(path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"), {interface, name},
         [done = std::move(done)](const QDBusMessage& reply) {
             done(reply.arguments().value(0).value<QDBusVariant>().variant());
         });
}

void BusService::receive(const QDBusMessage& message)
{
    Q_EMIT received(message);
}

} // namespace tessel
