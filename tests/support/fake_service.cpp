// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/fake_service.h"

#include <QDBusVariant>
#include <gtest/gtest.h>

#include <utility>

namespace tessel {

namespace {

const auto propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

} // namespace

FakeService::FakeService(QDBusConnection bus, QString name, QString path)
    : m_bus(std::move(bus))
    , m_name(std::move(name))
    , m_path(std::move(path))
{
    EXPECT_TRUE(m_bus.registerVirtualObject(m_path, this, QDBusConnection::SubPath));
    EXPECT_TRUE(m_bus.registerService(m_name));
}

FakeService::FakeService(QDBusConnection bus, const char* name, const char* path, Answer answer)
    : FakeService(std::move(bus), QLatin1String(name), QLatin1String(path))
{
    m_answer = std::move(answer);
}

FakeService::~FakeService()
{
    m_bus.unregisterService(m_name);
    m_bus.unregisterObject(m_path, QDBusConnection::UnregisterTree);
}

void FakeService::changeProperty(const QString& path, const QString& interface, const QString& name,
                                 const QVariant& value)
{
    setProperty(name, value);
    signal(path, propertiesInterface, QStringLiteral("PropertiesChanged"),
           {interface, QVariantMap{{name, value}}, QStringList()});
}

void FakeService::signal(const QString& path, const QString& interface, const QString& member,
                         const QVariantList& arguments)
{
    auto message = QDBusMessage::createSignal(path, interface, member);
    message.setArguments(arguments);
    EXPECT_TRUE(m_bus.send(message));
    // Whatever anybody sends from now on arrives later.
    m_bus.call(QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId")));
}

bool FakeService::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    const QVariantList arguments = message.arguments();
    if (m_hangs) {
        ++m_unanswered;
        return true;
    }
    if (m_answer) {
        const auto values = m_answer(message.member(), arguments);
        return connection.send(
            values ? message.createReply(*values)
                   : message.createErrorReply(QDBusError::AccessDenied, QStringLiteral("no")));
    }
    if (message.interface() == propertiesInterface) {
        const auto property = m_properties.find(arguments.value(1).toString());
        if (property == m_properties.end())
            return false;
        return connection.send(message.createReply(QVariant::fromValue(QDBusVariant(property->second))));
    }
    const auto method = m_methods.find(message.interface() + QLatin1Char('.') + message.member());
    return method != m_methods.end() && connection.send(message.createReply(method->second(arguments)));
}

} // namespace tessel
