// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/desktops/desktop_calls.h"

#include "platform/desktop_pictures.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTimer>

namespace tessel {

namespace {

/// The most of an answer that is said again.
constexpr qsizetype longestAnswer = 200;

QString answered(const QString& text)
{
    //: "it" is the desktop; behind a colon
    return DesktopPictures::tr("it answered “%1”.").arg(text.trimmed().left(longestAnswer));
}

QString inWords(const QDBusError& error)
{
    switch (error.type()) {
    case QDBusError::ServiceUnknown:
    case QDBusError::Disconnected:
        //: "it" is the desktop; behind a colon
        return DesktopPictures::tr("it is not running any more.");
    case QDBusError::AccessDenied:
        //: "it" is the desktop; behind a colon
        return DesktopPictures::tr("it does not allow it.");
    default:
        return answered(error.message());
    }
}

} // namespace

DesktopCalls::DesktopCalls(QDBusConnection bus, std::chrono::milliseconds patience)
    : m_bus(std::move(bus))
    , m_patience(patience)
{
}

QVariantList DesktopCalls::call(const Method& method, const QVariantList& arguments)
{
    if (m_isHung)
        throw noAnswer();
    QDBusMessage message =
        QDBusMessage::createMethodCall(method.service, method.path, method.interface, method.name);
    message.setArguments(arguments);
    QDBusPendingCallWatcher watcher(m_bus.asyncCall(message, static_cast<int>(m_patience.count())));
    if (!watcher.isFinished()) {
        QEventLoop loop;
        QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
        loop.exec();
    }
    if (!watcher.isFinished() || watcher.error().type() == QDBusError::NoReply)
        throw noAnswer();
    if (watcher.isError())
        throw DesktopError{inWords(watcher.error())};
    return watcher.reply().arguments();
}

QString DesktopCalls::run(const QString& program, const QStringList& arguments)
{
    if (m_isHung)
        throw noAnswer();
    QProcess process;
    process.start(program, arguments);
    wait(process);
    if (process.error() == QProcess::FailedToStart)
        throw DesktopError{DesktopPictures::tr("the program %1 is not installed.").arg(program)};
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished();
        throw noAnswer();
    }
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        throw DesktopError{answered(QString::fromUtf8(process.readAllStandardError()))};
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

void DesktopCalls::wait(QProcess& process)
{
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    QObject::connect(&process, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    timer.start(m_patience);
    if (process.state() != QProcess::NotRunning)
        loop.exec();
}

DesktopError DesktopCalls::noAnswer()
{
    m_isHung = true;
    //: "it" is the desktop; behind a colon
    return {DesktopPictures::tr("it does not answer.")};
}

QString settingsProfile(std::uint32_t process)
{
    QFile commandLine(QStringLiteral("/proc/%1/cmdline").arg(process));
    const bool opened = commandLine.open(QIODevice::ReadOnly);
    const QList<QByteArray> arguments = opened ? commandLine.readAll().split('\0') : QList<QByteArray>();
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        if (arguments[i].startsWith("--profile="))
            return QString::fromLocal8Bit(arguments[i].mid(10));
        if ((arguments[i] == "--profile" || arguments[i] == "-p") && i + 1 < arguments.size())
            return QString::fromLocal8Bit(arguments[i + 1]);
    }
    return QStringLiteral("default");
}

} // namespace tessel
