// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

namespace tessel {

/// The desktop's own short messages, which go away by themselves.
class Notifications : public QObject
{
    Q_OBJECT

public:
    /// Shows a message, both parts plain text.
    /// \param failed called if there is nothing that would show it
    virtual void show(const QString& title, const QString& text, std::function<void()> failed) = 0;

Q_SIGNALS:
    /// A message was handed over to what shows it.
    void shown();
};

[[nodiscard]] std::unique_ptr<Notifications> makeNotifications();

} // namespace tessel
