// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/running_application.h"

#include "base/identity.h"

#include <QDBusError>

#include <array>
#include <chrono>
#include <stdexcept>

namespace tessel::cli {

namespace {

/// How long an answer may take: far longer than anything that is asked for.
constexpr std::chrono::milliseconds patience{20'000};

// QCoreApplication keeps references to these.
int argumentCount = 1;
std::array<char, 7> programName{"tessel"};
std::array<char*, 2> programArguments{programName.data(), nullptr};

std::string problem(const QDBusMessage& answer)
{
    if (answer.errorName() == QStringLiteral("org.freedesktop.DBus.Error.NameHasNoOwner"))
        return "Tessel Broth is not running in this session; start tessel-broth first";
    switch (QDBusError(answer).type()) {
    case QDBusError::NoReply:
    case QDBusError::Timeout:
    case QDBusError::TimedOut:
        return "Tessel Broth does not answer";
    case QDBusError::UnknownMethod:
    case QDBusError::UnknownInterface:
        return "the Tessel Broth that is running is of a version that does not know this; quit it and start "
               "it anew";
    default:
        return "Tessel Broth has refused: " + answer.errorMessage().toStdString();
    }
}

} // namespace

RunningApplication::RunningApplication()
    : m_application(argumentCount, programArguments.data())
    , m_bus(QDBusConnection::sessionBus())
{
    if (!m_bus.isConnected())
        throw std::runtime_error(
            "there is no session bus; run this within the session of your desktop, where "
            "DBUS_SESSION_BUS_ADDRESS is set");
}

void RunningApplication::perform(const QString& action, const QVariant& parameter)
{
    const QVariantList parameters = parameter.isValid() ? QVariantList{parameter} : QVariantList();
    call(QStringLiteral("org.freedesktop.Application"), QStringLiteral("ActivateAction"),
         {action, parameters, QVariantMap()});
}

RunningApplication::Wallpaper RunningApplication::wallpaper()
{
    const QDBusMessage answer = call(identity::id, QStringLiteral("Wallpaper"), {});
    return {.look = answer.arguments().value(0).toString().toStdString(),
            .isAnimated = answer.arguments().value(1).toBool()};
}

QDBusMessage RunningApplication::call(const QString& interface, const QString& method,
                                      const QVariantList& arguments)
{
    auto question = QDBusMessage::createMethodCall(identity::id, identity::objectPath, interface, method);
    question.setArguments(arguments);
    question.setAutoStartService(false);
    QDBusMessage answer = m_bus.call(question, QDBus::Block, static_cast<int>(patience.count()));
    if (answer.type() != QDBusMessage::ReplyMessage)
        throw std::runtime_error(problem(answer));
    return answer;
}

} // namespace tessel::cli
