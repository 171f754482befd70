// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>
#include <QVariant>

#include <string>

namespace tessel::cli {

/// The desktop application of this session, which is asked over D-Bus. It is never started by that.
class RunningApplication
{
public:
    /// \throws std::runtime_error where there is no session bus
    RunningApplication();

    /// Has one of its actions done.
    /// \param parameter what the action takes; invalid for nothing
    /// \throws std::runtime_error when it does not run, does not answer, or refuses, with its reason
    void perform(const QString& action, const QVariant& parameter = {});

    struct Wallpaper
    {
        std::string look; ///< as JSON; empty while there is none
        bool isAnimated = false;
    };

    /// What is on the desktop.
    /// \throws std::runtime_error as above
    [[nodiscard]] Wallpaper wallpaper();

private:
    QDBusMessage call(const QString& interface, const QString& method, const QVariantList& arguments);

    QCoreApplication m_application;
    QDBusConnection m_bus;
};

} // namespace tessel::cli
