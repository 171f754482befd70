// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/surroundings.h"

#include <gtest/gtest.h>

namespace tessel {

Surrounding::~Surrounding()
{
    m_process.kill();
    m_process.waitForFinished();
}

QString Surrounding::start(const QString& program, const QStringList& arguments)
{
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start(program, arguments);
    QByteArray line;
    while (!line.endsWith('\n') && m_process.waitForReadyRead(10000))
        line += m_process.readLine();
    return QString::fromUtf8(line.trimmed());
}

PrivateBus::PrivateBus()
    : m_address(start(QStringLiteral("dbus-daemon"), {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                                      QStringLiteral("--print-address=1")}))
{
}

QDBusConnection PrivateBus::connect()
{
    static int count = 0;
    return QDBusConnection::connectToBus(m_address, QStringLiteral("test%1").arg(++count));
}

VirtualDisplay::VirtualDisplay(const QString& size, const QStringList& options)
    : m_number(start(QStringLiteral("Xvfb"), QStringList{QStringLiteral("-displayfd"), QStringLiteral("1"),
                                                         QStringLiteral("-screen"), QStringLiteral("0"), size,
                                                         QStringLiteral("-nolisten"), QStringLiteral("tcp")} +
                                                 options))
{
    qputenv("DISPLAY", ':' + m_number.toLatin1());
}

VirtualDisplay::~VirtualDisplay()
{
    qunsetenv("DISPLAY");
}

Variable::Variable(const char* name, const QByteArray& value)
    : m_name(name)
    , m_wasSet(qEnvironmentVariableIsSet(name))
    , m_before(qgetenv(name))
{
    qputenv(name, value);
}

Variable::~Variable()
{
    if (m_wasSet)
        qputenv(m_name, m_before);
    else
        qunsetenv(m_name);
}

void xrandr(const char* arguments)
{
    QProcess process;
    process.start(QStringLiteral("xrandr"), QString::fromLatin1(arguments).split(QLatin1Char(' ')));
    ASSERT_TRUE(process.waitForFinished());
    ASSERT_EQ(process.exitCode(), 0);
}

void runEvents(std::chrono::milliseconds duration)
{
    const auto start = std::chrono::steady_clock::now();
    while (std::chrono::steady_clock::now() - start < duration) {
        QCoreApplication::processEvents();
        QThread::msleep(1);
    }
}

} // namespace tessel
