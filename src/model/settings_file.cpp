// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// QSettings only reads here. When the disk is full it replaces the file by one that is cut short, without an
// error (seen with Qt 6.4.2), and it never keeps the lines that it cannot read.

#include "model/settings_file.h"

#include "base/identity.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSaveFile>
#include <QSettings>
#include <QStandardPaths>
#include <QThread>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tessel {

namespace {

struct SettingsFile
{
    Q_DECLARE_TR_FUNCTIONS(SettingsFile)
};

constexpr std::size_t maxCopies = 5;
constexpr int copyDigits = 4; ///< at least, so that they stand in order in a list of files
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
        if (isLineBreak(character) && !quoted)
            return at + 1;
        if (comment)
            continue;
        if (character == '"') {
            quoted = !quoted;
        } else if (character == ';' && !quoted) {
            comment = true;
        } else if (character == '\\') {
            ++at;
            // A break of two characters is one break.
            if (at + 1 < text.size() && isLineBreak(text[at]) && isLineBreak(text[at + 1]) &&
                text[at] != text[at + 1])
                ++at;
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

struct Entry
{
    QByteArrayView text; ///< its line break included
    std::string key;     ///< of a setting in no group, otherwise empty
    bool isTop = false;  ///< whether it is a header that settings in no group can follow
};

std::vector<Entry> entriesOf(QByteArrayView text)
{
    std::vector<Entry> entries;
    bool isGeneral = true;
    for (qsizetype begin = 0, end = 0; begin < text.size(); begin = end) {
        end = endOfEntry(text, begin);
        const QByteArrayView entry = text.sliced(begin, end - begin);
        if (isHeader(entry)) {
            isGeneral = isGeneralHeader(entry);
            entries.push_back({entry, {}, isGeneral && isPlain(entry)});
        } else {
            entries.push_back({entry, isGeneral ? keyOf(entry) : std::string()});
        }
    }
    return entries;
}

/// The same without the mark that some editors put in front.
QByteArrayView withoutMark(QByteArrayView text)
{
    return text.sliced(text.startsWith(byteOrderMark) ? byteOrderMark.size() : 0);
}

/// Whether these changes replace something that nobody could read.
bool losesUnreadable(QByteArrayView text, const SettingValues& changes,
                     const std::set<std::string>& unreadable)
{
    const std::vector<Entry> entries = entriesOf(withoutMark(text));
    return std::ranges::any_of(entries, [&](const Entry& entry) {
        // What we write is one line each. One that runs on has swallowed the settings below it.
        return changes.contains(entry.key) &&
               (unreadable.contains(entry.key) || std::ranges::any_of(entry.text.trimmed(), isLineBreak));
    });
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
            if (character == '"' || character == '\\')
                text += '\\';
            text += character;
        }
    }
    return text + ")\"";
}

QByteArray lineFor(const std::string& key, const SettingValue& value)
{
    QByteArray text;
    if (const auto* flag = std::get_if<bool>(&value))
        text = *flag ? "true" : "false";
    else if (const auto* number = std::get_if<qint64>(&value))
        text = QByteArray::number(*number);
    else if (const auto* real = std::get_if<double>(&value))
        text = QByteArray::number(*real, 'g', QLocale::FloatingPointShortest);
    else
        text = quoted(std::get<QByteArray>(value));
    return QByteArray::fromStdString(key) + '=' + text + '\n';
}

/// What a file holds; none when it is there but cannot be read.
std::optional<QByteArray> contents(QFile& file)
{
    if (!file.exists())
        return QByteArray();
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QByteArray text = file.readAll();
    return file.error() == QFileDevice::NoError ? std::optional(text) : std::nullopt;
}

/// Writes a text to a file that is open without a buffer.
bool writeAll(QFileDevice& file, const QByteArray& text)
{
    // A write that falls short gives no reason, the one after it does.
    qsizetype written = 0;
    while (written < text.size()) {
        const qint64 step = file.write(text.data() + written, text.size() - written);
        if (step <= 0)
            return false;
        written += step;
    }
    return true;
}

/// Replaces a file whole, or leaves it as it is and returns false.
bool replace(QSaveFile& file, const QByteArray& text)
{
    // Not buffered: commit() pays no heed to a buffer that it could not write.
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && writeAll(file, text) && file.commit();
}

/// Makes a file that is not there yet, on disk and whole, or returns false.
bool create(QFile& file, const QByteArray& text, QFile::Permissions permissions)
{
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return false;
    if (file.setPermissions(permissions) && writeAll(file, text) && fdatasync(file.handle()) == 0)
        return true;
    // Its name becomes free again.
    unlink(QFile::encodeName(file.fileName()).constData());
    return false;
}

/// A copy of a settings file that is kept beside it.
struct Copy
{
    QString path;
    qint64 number = 0; ///< one more than that of the copy before
};

QString copyStem(const QString& path)
{
    return path + QStringLiteral(".unreadable-");
}

/// The copies of a file, the newest last; none but those that are named as ours.
std::vector<Copy> copiesOf(const QString& path)
{
    std::vector<Copy> copies;
    const QString stem = copyStem(path);
    const QFileInfo original(path);
    for (const QFileInfo& file : original.absoluteDir().entryInfoList(
             {QFileInfo(stem).fileName() + QLatin1Char('*')}, QDir::Files | QDir::Hidden)) {
        bool isNumber = false;
        const qint64 number = file.fileName().mid(QFileInfo(stem).fileName().size()).toLongLong(&isNumber);
        if (isNumber && number > 0)
            copies.push_back({file.filePath(), number});
    }
    std::ranges::sort(copies, {}, &Copy::number);
    return copies;
}

/// Keeps a copy of a file that holds this text; of the copies made before, the newest stay. They are
/// numbered, since a clock may stand still or go back, and none ever takes the place of another. \return why
/// it could not be done, nothing on success
std::optional<QString> keepCopy(const QString& path, const QByteArray& text)
{
    const std::vector<Copy> before = copiesOf(path);
    if (!before.empty()) {
        // As when what comes after the copy has failed, and is tried again.
        QFile newest(before.back().path);
        if (contents(newest) == text)
            return std::nullopt;
    }
    const qint64 number = before.empty() ? 1 : before.back().number + 1;
    QFile copy(copyStem(path) + QStringLiteral("%1").arg(number, copyDigits, 10, QLatin1Char('0')));
    if (!create(copy, text, QFileInfo(path).permissions())) {
        return SettingsFile::tr("\"%1\" holds settings that cannot be read, and a copy cannot be kept: %2")
            .arg(path, copy.errorString());
    }
    // Should one of them stay, it does no harm.
    for (std::size_t index = 0; index + maxCopies <= before.size(); ++index)
        QFile::remove(before[index].path);
    return std::nullopt;
}

/// The lock file that QSettings would use, for as long as this lives. QLockFile waits for the disk, and one
/// that was killed while it made the file bars the way for half a minute. Here only the lock on the file
/// counts, which ends with the program.
class Lock
{
public:
    explicit Lock(const QString& path) : m_path(QFile::encodeName(path)) {}
    ~Lock()
    {
        if (m_file >= 0) {
            unlink(m_path.constData());
            close(m_file);
        }
    }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

    /// \return 0, EWOULDBLOCK as long as another program has it, or why there can be no such file
    int take(std::chrono::milliseconds patience)
    {
        const QDeadlineTimer deadline(patience);
        int error = tryTake();
        while (error == EWOULDBLOCK && !deadline.hasExpired()) {
            QThread::msleep(10);
            error = tryTake();
        }
        return error;
    }

private:
    int tryTake()
    {
        const int file = open(m_path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
        if (file < 0)
            return errno;
        // Where a file system knows no locks, settings are saved without.
        const bool isTaken = flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
        if (isTaken || !isAtPath(file)) {
            close(file);
            return EWOULDBLOCK;
        }
        m_file = file;
        return 0;
    }

    /// Whether nobody has removed the file after it was opened.
    [[nodiscard]] bool isAtPath(int file) const
    {
        struct stat opened = {};
        struct stat present = {};
        return fstat(file, &opened) == 0 && stat(m_path.constData(), &present) == 0 &&
               opened.st_dev == present.st_dev && opened.st_ino == present.st_ino;
    }

    QByteArray m_path;
    int m_file = -1;
};

} // namespace

QString defaultSettingsFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/%1/%2.conf").arg(identity::folder, identity::name);
}

StoredSettings readSettings(const QString& path)
{
    const QSettings file(path, QSettings::IniFormat);
    StoredSettings stored;
    for (const QString& key : file.childKeys())
        stored.values.emplace(key.toStdString(), file.value(key));
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
    const QByteArrayView body = withoutMark(text);
    QByteArray result = text.first(text.size() - body.size()).toByteArray();
    // New keys go to the top: quotes that nobody has closed may have swallowed the end.
    qsizetype top = result.size();
    bool hasTop = false;
    SettingValues missing = changes;
    for (const Entry& entry : entriesOf(body)) {
        const auto change = changes.find(entry.key);
        if (change == changes.end()) {
            result += entry.text;
        } else if (missing.erase(change->first) > 0) {
            // Further entries for the key have to go: the last one is the one that is read.
            result += lineFor(change->first, change->second);
        }
        if (entry.isTop && !std::exchange(hasTop, true))
            top = result.size();
    }

    QByteArray lines;
    if (!hasTop && !missing.empty())
        lines += "[General]\n";
    for (const auto& [key, value] : missing)
        lines += lineFor(key, value);
    return result.insert(top, lines);
}

std::optional<WritingFailure> writeSettings(const QString& path, const SettingValues& changes,
                                            const std::set<std::string>& unreadable,
                                            std::chrono::milliseconds patience)
{
    const QString folder = QFileInfo(path).absolutePath();
    if (!QDir().mkpath(folder)) {
        return WritingFailure{
            SettingsFile::tr("the folder \"%1\" cannot be made; a place that may be written to is expected")
                .arg(folder)};
    }
    Lock lock(path + QStringLiteral(".lock"));
    const int error = lock.take(patience);
    if (error == EWOULDBLOCK)
        return WritingFailure{SettingsFile::tr("another program is writing \"%1\"").arg(path), true};
    if (error != 0) {
        return WritingFailure{
            SettingsFile::tr(
                "the folder \"%1\" cannot be written to (%2); permission and free space are expected")
                .arg(folder, QString::fromStdString(std::generic_category().message(error)))};
    }
    QFile current(path);
    const std::optional<QByteArray> text = contents(current);
    if (!text)
        return WritingFailure{SettingsFile::tr("\"%1\" cannot be read: %2").arg(path, current.errorString())};
    if (losesUnreadable(*text, changes, unreadable)) {
        if (const std::optional<QString> failure = keepCopy(path, *text))
            return WritingFailure{*failure};
    }
    QSaveFile next(path);
    if (!replace(next, withSettings(*text, changes)))
        return WritingFailure{SettingsFile::tr("\"%1\" cannot be written: %2").arg(path, next.errorString())};
    return std::nullopt;
}

} // namespace tessel
