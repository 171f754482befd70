// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/notifications.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <chrono>
#include <functional>
#include <utility>

namespace tessel {

/// Messages through the notification service of the desktop.
class BusNotifications : public Notifications
{
    Q_OBJECT

public:
    /// \param patience with a service that has to be started first, and perhaps cannot be
    explicit BusNotifications(QDBusConnection bus,
                              std::chrono::milliseconds patience = std::chrono::seconds(3))
        : m_bus(std::move(bus))
        , m_patience(patience)
    {
    }

    void show(const QString& title, const QString& text, std::function<void()> failed) override;

private:
    void send(const QString& title, const QString& text, const std::function<void()>& failed);
    void ask(const QDBusMessage& call, std::function<void()> failed,
             std::function<void(const QDBusMessage& answer)> answered);

    QDBusConnection m_bus;
    std::chrono::milliseconds m_patience;
};

} // namespace tessel
