// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/login_item.h"

#include <QDBusConnection>
#include <QString>
#include <QVariantMap>

namespace tessel {

/// The program's entry among those that the desktop starts at login: a file "autostart/<id>.desktop" in the
/// user's configuration, or in the system's for all users.
class AutostartEntry : public LoginItem
{
public:
    /// \param program absolute path of what is to be started
    explicit AutostartEntry(QString program);

    [[nodiscard]] Status status() const override;

    /// An entry that was switched off in the desktop's settings is left as it is.
    void registerItem(const Done& done) override { done(switchOn()); }
    void unregisterItem(const Done& done) override { done(switchOff()); }
    void openSettings(QObject* context, const Done& done) override;

private:
    std::optional<QString> switchOn();
    std::optional<QString> switchOff();

    QString m_program;
    QString m_file; ///< the user's own entry
};

/// The Background portal, which starts programs at login that are in a sandbox. It tells nobody what it was
/// asked before, so a mark in a file says whether it has agreed.
class PortalLoginItem : public QObject, public LoginItem
{
    Q_OBJECT

public:
    /// \param mark the file, which is there while the portal has agreed
    PortalLoginItem(QDBusConnection bus, QString mark);

    [[nodiscard]] Status status() const override;
    void registerItem(const Done& done) override;
    void unregisterItem(const Done& done) override;
    void openSettings(QObject* context, const Done& done) override;

private:
    void ask(bool on, const Done& done);
    void end(const std::optional<QString>& failure);
    Q_SLOT void hear(uint response, const QVariantMap& results);

    QDBusConnection m_bus;
    QString m_mark;
    bool m_isForbidden = false;
    bool m_isOnWanted = false;
    Done m_done; ///< none while nothing is asked
};

/// A path as the Exec key of a desktop entry takes it, for a command without arguments.
[[nodiscard]] QString execValue(const QString& program);

} // namespace tessel
