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
#include <optional>

namespace tessel {

/// A service on a bus that answers as a test tells it to. It lives in the test's own thread: whoever waits
/// for its answers there waits in vain.
class FakeService : public QDBusVirtualObject
{
public:
    using Method = std::function<QVariantList(const QVariantList& arguments)>;
    using Answer = std::function<std::optional<QVariantList>(const QString& method, const QVariantList&)>;

    /// \param path below which it answers
    FakeService(QDBusConnection bus, QString name, QString path = QStringLiteral("/"));
    /// One that answers every call with a function's result; none is a refusal.
    FakeService(QDBusConnection bus, const char* name, const char* path, Answer answer);
    ~FakeService() override;

    /// \param member interface and name, such as "org.example.Thing.Do"
    void answer(const QString& member, Method method) { m_methods[member] = std::move(method); }
    /// From now on it answers nothing.
    void hang() { m_hangs = true; }
    /// How many calls it has not answered since.
    [[nodiscard]] int unanswered() const { return m_unanswered; }
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
    const QString m_name;
    const QString m_path;
    Answer m_answer;
    bool m_hangs = false;
    int m_unanswered = 0;
    std::map<QString, Method> m_methods;
    std::map<QString, QVariant> m_properties;
};

} // namespace tessel
