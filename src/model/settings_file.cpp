// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The file is one that QSettings could read and write. When the disk is full it replaces the file by one that
// is cut short, without an error (seen with Qt 6.4.2); it never keeps the lines that it cannot read; and it
// makes whatever object a value asks for, down to the end of the stack.

#include "model/settings_file.h"

#include "base/file_writer.h"
#include "base/identity.h"
#include "base/ini_value.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>
#include <QThread>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <span>
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
/// Room for twenty thousand looks. What is larger takes long to read and is nothing that we have written.
constexpr qint64 maxSize = qint64{8} << 20;

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

bool isComment(QByteArrayView entry)
{
    return entry.trimmed().startsWith(';');
}

/// Whether an entry is neither a setting nor anything else that can stand in such a file.
bool isPassedOver(QByteArrayView entry)
{
    if (isHeader(entry))
        return !entry.contains(']');
    return !entry.trimmed().isEmpty() && !isComment(entry) && !entry.contains('=');
}

/// The key of `key=value`; empty for what is no setting.
std::string keyOf(QByteArrayView entry)
{
    const qsizetype equals = isComment(entry) ? -1 : entry.indexOf('=');
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

/// Whether there is a setting in it that could be one of ours. After a crash of the machine a disk may give
/// back an empty file or one of zeros.
bool holdsSettings(QByteArrayView text)
{
    const std::vector<Entry> entries = entriesOf(withoutMark(text));
    return std::ranges::any_of(entries, [](const Entry& entry) {
        return !entry.key.empty() && entry.key.find('\0') == std::string::npos;
    });
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

/// What a file holds, or why it cannot be read.
struct Contents
{
    QByteArray text; ///< empty if the file is missing
    std::optional<QString> problem;
};

/// Only ordinary files of a sensible size are opened: others may have no end, or never begin.
Contents contentsOf(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return {};
    if (!info.isFile())
        return {{}, SettingsFile::tr("\"%1\" is not an ordinary file").arg(path)};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {{}, SettingsFile::tr("\"%1\" cannot be read: %2").arg(path, file.errorString())};
    QByteArray text = file.read(maxSize + 1);
    if (file.error() != QFileDevice::NoError)
        return {{}, SettingsFile::tr("\"%1\" cannot be read: %2").arg(path, file.errorString())};
    if (text.size() > maxSize)
        return {{},
                SettingsFile::tr("\"%1\" is larger than %2 MiB, which settings are not")
                    .arg(path)
                    .arg(maxSize >> 20)};
    return {std::move(text), std::nullopt};
}

QString previousOf(const QString& path)
{
    return path + QStringLiteral(".previous");
}

/// Makes the settings file of now, which is about to be replaced, the previous one too. Where a file system
/// knows no second names there is none.
void keepAsPrevious(const QString& path)
{
    const QByteArray current = QFile::encodeName(path);
    const QByteArray previous = QFile::encodeName(previousOf(path));
    const QByteArray next = previous + ".new";
    unlink(next.constData());
    if (linkat(AT_FDCWD, current.constData(), AT_FDCWD, next.constData(), AT_SYMLINK_FOLLOW) == 0)
        rename(next.constData(), previous.constData());
    // It is still there if both are one file already, which happens where a write failed.
    unlink(next.constData());
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

/// What changes are made to where the file itself holds no setting.
/// \param text what it does hold
/// \param known what it is known to have held
QByteArray lastKnown(const QString& path, const QByteArray& text, const QByteArray* known)
{
    if (known != nullptr && holdsSettings(*known))
        return *known;
    // A file that is missing was removed: no crash does that, and whoever did it wanted it so.
    const QByteArray previous = QFileInfo::exists(path) ? contentsOf(previousOf(path)).text : QByteArray();
    return holdsSettings(previous) ? previous : text;
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
        const Contents newest = contentsOf(before.back().path);
        if (!newest.problem && newest.text == text)
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

/// The settings in the text of a file.
StoredSettings settingsIn(QByteArray text, const QString& path)
{
    StoredSettings stored;
    const std::vector<Entry> entries = entriesOf(withoutMark(text));
    for (const Entry& entry : entries)
        if (!entry.key.empty())
            stored.values.insert_or_assign(entry.key,
                                           iniValue(entry.text.sliced(entry.text.indexOf('=') + 1)));
    if (std::ranges::any_of(entries, isPassedOver, &Entry::text))
        stored.problem =
            QStringLiteral("\"%1\" has lines that were passed over; they should read key=value or [group]")
                .arg(path);
    stored.text = std::move(text);
    return stored;
}

/// Replaces the file by one with new values; the lock is the caller's concern.
std::optional<WritingFailure> change(const QString& path, const SettingValues& changes,
                                     const std::set<std::string>& unreadable, QByteArray* known, Sync sync)
{
    const Contents now = contentsOf(path);
    if (now.problem)
        return WritingFailure{*now.problem};
    const bool isWhole = holdsSettings(now.text);
    const QByteArray base = isWhole ? now.text : lastKnown(path, now.text, known);
    const bool losesText = base != now.text && !now.text.isEmpty();
    if (losesText || losesUnreadable(now.text, changes, unreadable)) {
        if (const std::optional<QString> problem = keepCopy(path, now.text))
            return WritingFailure{*problem};
    }
    const QByteArray next = withSettings(base, changes);
    try {
        FileWriter file(QFile::encodeName(path).toStdString(), Permissions::asBefore);
        file.write(std::as_bytes(std::span(next)));
        if (isWhole)
            keepAsPrevious(path);
        file.commit(sync);
    } catch (const FileError& failure) {
        return WritingFailure{QString::fromUtf8(failure.what())};
    }
    if (known != nullptr)
        *known = next;
    return std::nullopt;
}

} // namespace

QString defaultSettingsFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/%1/%2.conf").arg(identity::folder, identity::name);
}

StoredSettings readSettings(const QString& path)
{
    Contents now = contentsOf(path);
    const bool isDamaged = now.problem || (QFileInfo::exists(path) && !holdsSettings(now.text));
    Contents previous = isDamaged ? contentsOf(previousOf(path)) : Contents();
    if (holdsSettings(previous.text)) {
        StoredSettings stored = settingsIn(std::move(previous.text), previousOf(path));
        stored.problem =
            QStringLiteral("%1; the settings of before its last change are used")
                .arg(now.problem.value_or(QStringLiteral("\"%1\" holds no settings any more").arg(path)));
        return stored;
    }
    if (now.problem)
        return {{}, {}, *now.problem + QStringLiteral("; a file that you may read and write is expected")};
    return settingsIn(std::move(now.text), path);
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
                                            std::chrono::milliseconds patience, QByteArray* known)
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
    return change(path, changes, unreadable, known, Sync::now);
}

std::optional<WritingFailure> writeSettingsAtEnd(const QString& path, const SettingValues& changes,
                                                 const std::set<std::string>& unreadable)
{
    return change(path, changes, unreadable, nullptr, Sync::later);
}

} // namespace tessel
