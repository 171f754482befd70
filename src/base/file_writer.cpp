// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/file_writer.h"

#include <QCoreApplication>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>

namespace tessel {

namespace fs = std::filesystem;

namespace {

struct FileWriterText
{
    Q_DECLARE_TR_FUNCTIONS(FileWriterText)
};

constexpr std::string_view temporaryStart = ".tessel-";
constexpr std::string_view temporaryEnd = ".tmp";

/// Takes the lock that says that somebody still writes a file. Nobody else has it from then on, unless the
/// file system knows no locks.
/// \return whether the file is still to be had under its name
bool claim(const FileDescriptor& file)
{
    struct stat status = {};
    const bool isTaken = ::flock(file.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    return !isTaken && ::fstat(file.get(), &status) == 0 && status.st_nlink > 0;
}

/// Removes what programs that were killed have left in a folder: what is being written is locked.
void removeLeftBehind(const fs::path& folder)
{
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (!isTemporary(entry->path().filename().string()))
            continue;
        const FileDescriptor file(
            ::open(entry->path().c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
        if (file.isOpen() && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0)
            ::unlink(entry->path().c_str());
    }
}

} // namespace

bool isTemporary(const std::string& name)
{
    std::string_view middle = name;
    if (!middle.starts_with(temporaryStart) || !middle.ends_with(temporaryEnd) ||
        middle.size() <= temporaryStart.size() + temporaryEnd.size())
        return false;
    middle.remove_prefix(temporaryStart.size());
    middle.remove_suffix(temporaryEnd.size());
    const std::size_t dash = middle.find('-');
    const auto isNumber = [](std::string_view text) {
        return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
    };
    return dash != middle.npos && isNumber(middle.substr(0, dash)) && isNumber(middle.substr(dash + 1));
}

FileWriter::FileWriter(const fs::path& path, Permissions permissions) : m_name(path), m_target(path)
{
    if (!m_name.has_filename())
        fail(m_name.empty() ? ENOENT : EISDIR);
    struct stat status = {};
    const bool exists = ::stat(m_name.c_str(), &status) == 0;
    if (!exists && errno != ENOENT)
        fail(errno);
    if (exists && S_ISDIR(status.st_mode))
        fail(EISDIR);
    followLinks();
    // A link in /proc may mean a file that no name leads to: one that is open as standard output, say.
    std::error_code ignored;
    if (exists && (!S_ISREG(status.st_mode) || !fs::equivalent(m_name, m_target, ignored))) {
        m_file = FileDescriptor(::open(m_name.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC));
        if (!m_file.isOpen())
            fail(errno);
        return;
    }
    createTemporary();
    // One whose permissions cannot be had is still better than none.
    if (exists && permissions == Permissions::asBefore)
        static_cast<void>(::fchmod(m_file.get(), status.st_mode & 07777));
}

FileWriter::~FileWriter()
{
    giveUp();
}

void FileWriter::write(std::span<const std::byte> bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(m_file.get(), bytes.data(), bytes.size());
        if (written >= 0)
            bytes = bytes.subspan(static_cast<std::size_t>(written));
        else if (errno != EINTR)
            fail(errno);
    }
}

void FileWriter::commit(Sync sync)
{
    if (m_temporary.empty()) {
        if (!m_file.close())
            fail(errno);
        return;
    }
    // Some disks say only now that they are full. The lock stays until the file is in its place.
    if ((sync == Sync::now && ::fsync(m_file.get()) != 0) ||
        ::rename(m_temporary.c_str(), m_target.c_str()) != 0)
        fail(errno);
    m_temporary.clear();
    m_file.close();
}

void FileWriter::fail(int error) const
{
    const bool writable = ::faccessat(AT_FDCWD, folderOf(m_target).c_str(), W_OK, AT_EACCESS) == 0;
    throw FileError(writable ? FileError::Code::unknown : FileError::Code::noPermission,
                    //: between the name of a file and the reason
                    m_name.string() + ": " + FileWriterText::tr("cannot be written").toStdString() + ": " +
                        reasonFor(error, m_target));
}

void FileWriter::followLinks()
{
    std::error_code noLink;
    for (fs::path link = fs::read_symlink(m_target, noLink); !noLink;
         link = fs::read_symlink(m_target, noLink))
        m_target = m_target.parent_path() / link;
}

/// Opens a file beside the target under a name that nothing has yet.
void FileWriter::createTemporary()
{
    static std::atomic<unsigned> count = 0;
    const fs::path folder = folderOf(m_target);
    removeLeftBehind(folder);
    while (!m_file.isOpen()) {
        m_temporary = folder / (std::string(temporaryStart) + std::to_string(::getpid()) + "-" +
                                std::to_string(count++) + std::string(temporaryEnd));
        m_file = FileDescriptor(::open(m_temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
        if (!m_file.isOpen() && errno != EEXIST) {
            const int error = errno;
            m_temporary.clear();
            fail(error);
        }
        // Somebody may have taken it for one that was left behind.
        if (m_file.isOpen() && !claim(m_file))
            giveUp();
    }
}

void FileWriter::giveUp()
{
    if (!m_temporary.empty())
        ::unlink(m_temporary.c_str());
    m_temporary.clear();
    m_file.close();
}

void writeFile(const fs::path& path, std::span<const std::byte> bytes)
{
    FileWriter file(path);
    file.write(bytes);
    file.commit();
}

} // namespace tessel
