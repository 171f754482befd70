// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QString>
#include <QVariant>

#include <functional>
#include <map>

namespace tessel {

/// A service on a bus that answers as a test tells it to. It lives in the test's own thread: whoever waits
/// for its answers there waits in vain.
class FakeService : public QDBusVirtualObject
{
public:
    using Method = std::function<QVariantList(const QVariantList& arguments)>;

    FakeService(QDBusConnection bus, QString name);
    ~FakeService() override;

    /// \param member interface and name, such as "org.example.Thing.Do"
    void answer(const QString& member, Method method) { m_methods[member] = std::move(method); }
    /// What the properties interface answers for a property's name.
    void setProperty(const QString& name, const QVariant& value) { m_properties[name] = value; }
    /// The same, and tells of it.
    void changeProperty(const QString& path, const QString& interface, const QString& name,
                        const QVariant& value);
    void signal(const QString& path, const QString& interface, const QString& member,
                const QVariantList& arguments);

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }

private:
    QDBusConnection m_bus;
    QString m_name;
    std::map<QString, Method> m_methods;
    std::map<QString, QVariant> m_properties;
};

} // namespace tessel
