// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/login_item.h"

#include <QString>

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
    [[nodiscard]] std::optional<QString> registerItem() override;
    [[nodiscard]] std::optional<QString> unregisterItem() override;
    void openSettings() override;

private:
    QString m_program;
    QString m_file; ///< the user's own entry
};

/// A path as the Exec key of a desktop entry takes it, for a command without arguments.
[[nodiscard]] QString execValue(const QString& program);

} // namespace tessel
