// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// QSettings only reads here. When the disk is full it replaces the file by one that is cut short, without an
// error (seen with Qt 6.4.2), and it never keeps the lines that it cannot read.

#include "model/settings_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QLockFile>
#include <QSaveFile>
#include <QSettings>
#include <QStandardPaths>

#include <algorithm>
#include <chrono>

namespace tessel {

namespace {

constexpr std::chrono::seconds lockPatience{1};
constexpr QByteArrayView byteOrderMark("\xEF\xBB\xBF");

bool isLineBreak(char character)
{
    return character == '\n' || character == '\r';
}

bool isHexDigit(char character)
{
    return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'f') ||
           (character >= 'A' && character <= 'F');
}

/// How far the entry that starts at `begin` goes, its line break and a comment at its end included. Within
/// quotes and after a backslash a line break does not count.
qsizetype endOfEntry(QByteArrayView text, qsizetype begin)
{
    bool quoted = false;
    bool comment = false;
    for (qsizetype at = begin; at < text.size(); ++at) {
        const char character = text[at];
        if (isLineBreak(character) && !quoted) {
            return at + 1;
        }
        if (comment) {
            continue;
        }
        if (character == '"') {
            quoted = !quoted;
        } else if (character == ';' && !quoted) {
            comment = true;
        } else if (character == '\\') {
            ++at;
            // A break of two characters is one break.
            if (at + 1 < text.size() && isLineBreak(text[at]) && isLineBreak(text[at + 1]) &&
                text[at] != text[at + 1]) {
                ++at;
            }
        }
    }
    return text.size();
}

bool isHeader(QByteArrayView entry)
{
    return entry.trimmed().startsWith('[');
}

/// Whether the keys below this header have no group in front of them.
bool isGeneralHeader(QByteArrayView header)
{
    const QByteArrayView name = header.trimmed().sliced(1);
    const auto* const end =
        std::ranges::find_if(name, [](char character) { return character == ']' || character == ';'; });
    return name.first(end - name.begin()).trimmed().compare("general", Qt::CaseInsensitive) == 0;
}

/// Whether what follows this header surely belongs to it.
bool isPlain(QByteArrayView header)
{
    return isLineBreak(header.back()) && !header.contains('"') && !header.contains('\\');
}

/// The key of `key=value`; empty for what is no setting.
std::string keyOf(QByteArrayView entry)
{
    const qsizetype equals = entry.indexOf('=');
    return equals < 0 ? std::string() : entry.first(equals).trimmed().toByteArray().toStdString();
}

/// Bytes in the form that QSettings reads back as bytes.
QByteArray quoted(const QByteArray& bytes)
{
    QByteArray text = "\"@ByteArray(";
    bool afterHex = false;
    for (const char character : bytes) {
        // A digit after a hexadecimal escape would be read as part of it.
        afterHex = character < ' ' || character > '~' || (afterHex && isHexDigit(character));
        if (afterHex) {
            text += "\\x" + QByteArray(1, character).toHex();
        } else {
            if (character == '"' || character == '\\') {
                text += '\\';
            }
            text += character;
        }
    }
    return text + ")\"";
}

QByteArray lineFor(const std::string& key, const SettingValue& value)
{
    QByteArray text;
    if (const auto* flag = std::get_if<bool>(&value)) {
        text = *flag ? "true" : "false";
    } else if (const auto* number = std::get_if<qint64>(&value)) {
        text = QByteArray::number(*number);
    } else if (const auto* real = std::get_if<double>(&value)) {
        text = QByteArray::number(*real, 'g', QLocale::FloatingPointShortest);
    } else {
        text = quoted(std::get<QByteArray>(value));
    }
    return QByteArray::fromStdString(key) + '=' + text + '\n';
}

/// What a file holds; none when it is there but cannot be read.
std::optional<QByteArray> contents(QFile& file)
{
    if (!file.exists()) {
        return QByteArray();
    }
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    QByteArray text = file.readAll();
    return file.error() == QFileDevice::NoError ? std::optional(text) : std::nullopt;
}

/// Replaces a file whole, or leaves it as it is and returns false.
bool replace(QSaveFile& file, const QByteArray& text)
{
    // Not buffered: commit() pays no heed to a buffer that it could not write.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        return false;
    }
    // A write that falls short gives no reason, the one after it does.
    qsizetype written = 0;
    while (written < text.size()) {
        const qint64 step = file.write(text.data() + written, text.size() - written);
        if (step <= 0) {
            return false;
        }
        written += step;
    }
    return file.commit();
}

} // namespace

QString defaultSettingsFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Tessel Broth/Tessel Broth.conf");
}

StoredSettings readSettings(const QString& path)
{
    const QSettings file(path, QSettings::IniFormat);
    StoredSettings stored;
    for (const QString& key : file.childKeys()) {
        stored.values.emplace(key.toStdString(), file.value(key));
    }
    // Only now: the keys are read when they are asked for.
    if (file.status() == QSettings::AccessError) {
        stored.problem =
            QStringLiteral("\"%1\" cannot be read; a file that you may read and write is expected").arg(path);
    } else if (file.status() == QSettings::FormatError) {
        stored.problem =
            QStringLiteral("\"%1\" has lines that were passed over; they should read key=value or [group]")
                .arg(path);
    }
    return stored;
}

QByteArray withSettings(QByteArrayView text, const SettingValues& changes)
{
    QByteArray result = text.startsWith(byteOrderMark) ? byteOrderMark.toByteArray() : QByteArray();
    // New keys go to the top: quotes that nobody has closed may have swallowed the end.
    qsizetype top = result.size();
    bool hasTopHeader = false;
    bool isGeneral = true;
    SettingValues missing = changes;
    for (qsizetype begin = result.size(), end = 0; begin < text.size(); begin = end) {
        end = endOfEntry(text, begin);
        const QByteArrayView entry = text.sliced(begin, end - begin);
        if (isHeader(entry)) {
            isGeneral = isGeneralHeader(entry);
            result += entry;
            if (isGeneral && !hasTopHeader && isPlain(entry)) {
                hasTopHeader = true;
                top = result.size();
            }
            continue;
        }
        const auto change = isGeneral ? changes.find(keyOf(entry)) : changes.end();
        if (change == changes.end()) {
            result += entry;
        } else if (missing.erase(change->first) > 0) {
            // Further entries for the key have to go: the last one is the one that is read.
            result += lineFor(change->first, change->second);
        }
    }

    QByteArray lines;
    if (!hasTopHeader && !missing.empty()) {
        lines += "[General]\n";
    }
    for (const auto& [key, value] : missing) {
        lines += lineFor(key, value);
    }
    return result.insert(top, lines);
}

std::optional<QString> writeSettings(const QString& path, const SettingValues& changes)
{
    const QString folder = QFileInfo(path).absolutePath();
    if (!QDir().mkpath(folder)) {
        return QStringLiteral("the folder \"%1\" cannot be made; a place that may be written to is expected")
            .arg(folder);
    }
    QLockFile lock(path + QStringLiteral(".lock")); // the name that QSettings uses
    if (!lock.tryLock(lockPatience)) {
        return lock.error() == QLockFile::LockFailedError
                   ? QStringLiteral("another program is writing \"%1\"").arg(path)
                   : QStringLiteral(
                         "the folder \"%1\" cannot be written to; permission and free space are expected")
                         .arg(folder);
    }
    QFile current(path);
    const std::optional<QByteArray> text = contents(current);
    if (!text) {
        return QStringLiteral("\"%1\" cannot be read: %2").arg(path, current.errorString());
    }
    QSaveFile next(path);
    if (!replace(next, withSettings(*text, changes))) {
        return QStringLiteral("\"%1\" cannot be written: %2").arg(path, next.errorString());
    }
    return std::nullopt;
}

} // namespace tessel
