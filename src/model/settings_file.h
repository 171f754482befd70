// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <chrono>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <variant>

namespace tessel {

/// What a setting can be set to; bytes hold JSON or other text in UTF-8.
using SettingValue = std::variant<bool, qint64, double, QByteArray>;
using SettingValues = std::map<std::string, SettingValue>;

/// The settings that a file holds, and what is wrong with the file as a whole.
struct StoredSettings
{
    std::map<std::string, QVariant> values; ///< those in no group, as QSettings reads them
    QByteArray text;                        ///< of the file that they were read from
    std::optional<QString> problem;
};

/// The user's own settings: "Tessel Broth/Tessel Broth.conf" below the configuration home.
[[nodiscard]] QString defaultSettingsFile();

/// Reads a settings file, an INI file as QSettings knows it. One that is missing holds nothing; of a damaged
/// one as much is read as can be. One that holds no setting at all any more, as after a crash of the machine,
/// gives way to what it was before its last change, "<path>.previous".
[[nodiscard]] StoredSettings readSettings(const QString& path);

/// The text of a settings file with new values for some keys, which consist of letters and digits. All else
/// stays byte for byte, settings that nobody can read included.
[[nodiscard]] QByteArray withSettings(QByteArrayView text, const SettingValues& changes);

/// Why settings could not be written.
struct WritingFailure
{
    QString message;
    bool isLocked = false; ///< another program is writing the file, which mostly takes a moment only
};

/// Puts new values into a settings file, at once and whole or not at all: as long as the new file is not on
/// disk, the old one stays, and afterwards it is "<path>.previous". Before it replaces what nobody could
/// read, which are the values of the keys in `unreadable` and those that run on over several lines because a
/// quote is missing, it keeps a copy of the file beside it, "<path>.unreadable-<number>"; the newest five
/// stay. \param patience how long to wait for another program that is writing the file \param known what the
/// file held when it was last read or written, which the changes are made to where it is gone or holds no
/// setting any more; afterwards what it holds now
[[nodiscard]] std::optional<WritingFailure> writeSettings(const QString& path, const SettingValues& changes,
                                                          const std::set<std::string>& unreadable = {},
                                                          std::chrono::milliseconds patience = {},
                                                          QByteArray* known = nullptr);

/// The same at once, for a program that ends while the disk does not answer: whoever else is writing the file
/// is not waited for, nor is the disk.
[[nodiscard]] std::optional<WritingFailure> writeSettingsAtEnd(const QString& path,
                                                               const SettingValues& changes,
                                                               const std::set<std::string>& unreadable);

} // namespace tessel
