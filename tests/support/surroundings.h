// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>
#include <QDBusConnection>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QThread>

#include <chrono>

namespace tessel {

/// What a test starts around the program: processes that end with it.
class Surrounding
{
public:
    ~Surrounding();
    Surrounding(const Surrounding&) = delete;
    Surrounding& operator=(const Surrounding&) = delete;

protected:
    Surrounding() = default;
    /// Starts a program that prints one line when it is ready.
    /// \return that line; empty if it did not start
    QString start(const QString& program, const QStringList& arguments);

private:
    QProcess m_process;
};

/// A message bus that nobody else uses.
class PrivateBus : public Surrounding
{
public:
    PrivateBus();

    [[nodiscard]] QString address() const { return m_address; }
    /// A connection of its own, with which programs and services are told apart.
    [[nodiscard]] QDBusConnection connect();

private:
    QString m_address;
};

/// An X server without a monitor; new clients find it through the environment while this lives.
class VirtualDisplay : public Surrounding
{
public:
    explicit VirtualDisplay(const QString& size = QStringLiteral("1280x800x24"),
                            const QStringList& options = {});
    ~VirtualDisplay();

    [[nodiscard]] bool isRunning() const { return !m_number.isEmpty(); }

private:
    QString m_number;
};

/// Sets a variable of the environment for as long as it lives.
class Variable
{
public:
    Variable(const char* name, const QByteArray& value);
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable();

private:
    const char* m_name;
    const bool m_wasSet;
    const QByteArray m_before;
};

/// Changes the monitors of the display.
void xrandr(const char* arguments);

/// The event loop that adapters need.
template<typename Application>
class WithApplication
{
private:
    int m_argumentCount = 1;
    char m_name[6] = "tests";
    char* m_arguments[2] = {m_name, nullptr};
    Application m_application{m_argumentCount, m_arguments};
};

/// Handles events until something is so.
/// \return whether it became so within a minute, which is long enough for a busy machine
template<typename Condition>
bool waitUntil(Condition condition)
{
    const auto start = std::chrono::steady_clock::now();
    while (!condition() && std::chrono::steady_clock::now() - start < std::chrono::seconds(60)) {
        QCoreApplication::processEvents();
        QThread::msleep(1);
    }
    return condition();
}

/// Handles events for a while, to see that nothing happens.
void runEvents(std::chrono::milliseconds duration);

} // namespace tessel
