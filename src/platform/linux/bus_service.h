// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QVariant>

#include <functional>
#include <vector>

namespace tessel {

/// Another program on a message bus, under a well-known name. It may come, go and be replaced; it is never
/// waited for, and never started by anything that is asked of it.
class BusService : public QObject
{
    Q_OBJECT

public:
    BusService(QDBusConnection bus, const QString& name, QObject* parent);

    /// Hears a signal of the service until it vanishes. Nothing happens while it does not run.
    /// \param path of the object; empty for any
    void listen(const QString& path, const QString& interface, const QString& member);

    /// Calls a method of the service, if it runs.
    /// \param done called with the reply, unless it is an error
    /// \param failed called with the error instead, if given
    void call(const QString& path, const QString& interface, const QString& method,
              const QVariantList& arguments, std::function<void(const QDBusMessage& reply)> done,
              std::function<void()> failed = nullptr);

    /// Asks for a property of the service.
    void property(const QString& path, const QString& interface, const QString& name,
                  std::function<void(const QVariant& value)> done);

Q_SIGNALS:
    void appeared();
    void vanished();
    /// A signal came that is listened to.
    void received(const QDBusMessage& message);

private:
    struct Heard
    {
        QString path;
        QString interface;
        QString member;
    };

    Q_SLOT void receive(const QDBusMessage& message);
    void setOwner(const QString& owner);

    QDBusConnection m_bus;
    QString m_owner; ///< its unique name on the bus; empty while it does not run
    std::vector<Heard> m_heard;
};

} // namespace tessel
