// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusConnection>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include <chrono>
#include <cstdint>

class QProcess;

namespace tessel {

/// Why the desktop did not do what it was asked, in words for people.
struct DesktopError
{
    QString reason;
};

/// Calls to a desktop that wait for the answer, for a thread of their own. They end early when their thread
/// is told to quit. Once an answer is missing, later calls fail at once.
class DesktopCalls
{
public:
    /// \param patience the longest wait for one answer
    explicit DesktopCalls(QDBusConnection bus, std::chrono::milliseconds patience = std::chrono::seconds(5));

    struct Method
    {
        QString service;
        QString path;
        QString interface;
        QString name;
    };

    /// \return what the method answers
    /// \throws DesktopError
    QVariantList call(const Method& method, const QVariantList& arguments);

    /// \return what the program prints
    /// \throws DesktopError
    QString run(const QString& program, const QStringList& arguments);

private:
    void wait(QProcess& process);
    [[nodiscard]] DesktopError noAnswer();

    QDBusConnection m_bus;
    std::chrono::milliseconds m_patience;
    bool m_isHung = false;
};

/// The settings profile that a file manager was started with.
/// \param process its number
[[nodiscard]] QString settingsProfile(std::uint32_t process);

} // namespace tessel
