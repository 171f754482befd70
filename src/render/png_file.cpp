// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/png_file.h"

#include <libdeflate.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <new>
#include <span>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tessel {

namespace fs = std::filesystem;

namespace {

class FileDescriptor
{
public:
    explicit FileDescriptor(int opened) : m_number(opened) {}
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { close(); }

    [[nodiscard]] int get() const { return m_number; }
    [[nodiscard]] bool isOpen() const { return m_number >= 0; }

    /// Closes it before its time; false, with errno set, where a write fails only now.
    bool close() { return !isOpen() || ::close(std::exchange(m_number, -1)) == 0; }

private:
    int m_number;
};

fs::path folderOf(const fs::path& path)
{
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

/// Why the system refused something with `path`, in plain words.
std::string reasonFor(int error, const fs::path& path)
{
    std::error_code ignored;
    const fs::path folder = folderOf(path);
    switch (error) {
    case EACCES:
    case EPERM:
        return "permission denied";
    case EROFS:
        return "the file system is read-only";
    case ENOENT:
        return fs::exists(folder, ignored) ? "there is no such file"
                                           : "there is no folder " + folder.string();
    case ENOTDIR:
        return folder.string() + " is not a folder";
    case EISDIR:
        return "it is a folder";
    case ENOSPC:
        return "the disk is full";
    case EDQUOT:
        return "the disk quota is used up";
    case EFBIG:
        return "the file would be larger than is allowed";
    case ENAMETOOLONG:
        return "the name is too long";
    default:
        return std::generic_category().message(error);
    }
}

/// Writes one file so that it is there whole or not at all.
class FileWriter
{
public:
    explicit FileWriter(const fs::path& path) : m_name(path), m_target(path) {}

    void write(std::span<const std::byte> bytes)
    {
        if (!m_name.has_filename())
            fail(m_name.empty() ? ENOENT : EISDIR);
        struct stat status = {};
        const bool exists = ::stat(m_name.c_str(), &status) == 0;
        if (!exists && errno != ENOENT)
            fail(errno);
        if (exists && S_ISDIR(status.st_mode))
            fail(EISDIR);
        if (exists && !S_ISREG(status.st_mode))
            return overwrite(bytes);
        followLinks();
        // A link in /proc may mean a file that no name leads to: one that is open as standard output, say.
        std::error_code ignored;
        if (exists && !fs::equivalent(m_name, m_target, ignored))
            return overwrite(bytes);
        replace(bytes);
    }

private:
    [[noreturn]] void fail(int error) const
    {
        const bool writable = ::faccessat(AT_FDCWD, folderOf(m_target).c_str(), W_OK, AT_EACCESS) == 0;
        throw FileError(writable ? FileError::Code::unknown : FileError::Code::noPermission,
                        m_name.string() + ": cannot be written: " + reasonFor(error, m_target));
    }

    void followLinks()
    {
        std::error_code noLink;
        for (fs::path link = fs::read_symlink(m_target, noLink); !noLink;
             link = fs::read_symlink(m_target, noLink))
            m_target = m_target.parent_path() / link;
    }

    void overwrite(std::span<const std::byte> bytes)
    {
        FileDescriptor file(::open(m_name.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC));
        if (!file.isOpen())
            fail(errno);
        writeAll(file, bytes);
        if (!file.close())
            fail(errno);
    }

    void replace(std::span<const std::byte> bytes)
    {
        FileDescriptor file(createTemporary());
        try {
            writeAll(file, bytes);
            if (::fsync(file.get()) != 0 || !file.close() ||
                ::rename(m_temporary.c_str(), m_target.c_str()) != 0)
                fail(errno);
        } catch (...) {
            ::unlink(m_temporary.c_str());
            throw;
        }
    }

    /// Opens a file beside the target under a name that nothing has yet.
    int createTemporary()
    {
        static std::atomic<unsigned> count = 0;
        int file = -1;
        do {
            m_temporary = folderOf(m_target) /
                          (".tessel-" + std::to_string(::getpid()) + "-" + std::to_string(count++) + ".tmp");
            file = ::open(m_temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        } while (file < 0 && errno == EEXIST);
        if (file < 0)
            fail(errno);
        return file;
    }

    void writeAll(const FileDescriptor& file, std::span<const std::byte> bytes) const
    {
        while (!bytes.empty()) {
            const ssize_t written = ::write(file.get(), bytes.data(), bytes.size());
            if (written >= 0)
                bytes = bytes.subspan(static_cast<std::size_t>(written));
            else if (errno != EINTR)
                fail(errno);
        }
    }

    fs::path m_name;   ///< as the caller calls it
    fs::path m_target; ///< the same file after links
    fs::path m_temporary;
};

std::uint32_t bigEndian(std::span<const std::uint8_t, 4> bytes)
{
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 |
           bytes[3];
}

struct FreeDecompressor
{
    void operator()(libdeflate_decompressor* decompressor) const
    {
        libdeflate_free_decompressor(decompressor);
    }
};

/// Fills its argument as far as there are more bytes, and says how many there were.
using ByteSource = std::function<std::size_t(std::span<std::uint8_t>)>;

[[noreturn]] void failReading(int error, const fs::path& path)
{
    throw FileError(error == EACCES ? FileError::Code::noPermission : FileError::Code::unknown,
                    path.string() + ": cannot be read: " + reasonFor(error, path));
}

/// Fills `bytes` as far as the file goes.
std::size_t readUpTo(const FileDescriptor& file, std::span<std::uint8_t> bytes, const fs::path& path)
{
    std::size_t count = 0;
    while (count < bytes.size()) {
        const ssize_t got = ::read(file.get(), bytes.data() + count, bytes.size() - count);
        if (got == 0)
            break;
        if (got > 0)
            count += static_cast<std::size_t>(got);
        else if (errno != EINTR)
            failReading(errno, path);
    }
    return count;
}

/// Walks over the chunks of a PNG file in search of the look.
class LookReader
{
public:
    LookReader(fs::path name, ByteSource source) : m_name(std::move(name)), m_source(std::move(source)) {}

    std::optional<std::string> read()
    {
        std::array<std::uint8_t, 8> start{};
        if (m_source(start) != start.size() || start != signature)
            fail("is not a PNG file");
        if (readChunk() != "IHDR")
            fail("is a damaged PNG file: it does not begin with its header");
        std::optional<std::string> look;
        for (std::string type = readChunk(); type != "IEND"; type = readChunk())
            if (type == "iTXt" && !look && std::string_view(m_text).starts_with(keyword))
                look = lookIn(std::string_view(m_text).substr(keyword.size()));
        return look;
    }

private:
    static constexpr std::array<std::uint8_t, 8> signature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    static constexpr std::string_view keyword{lookKeyword, sizeof lookKeyword}; // with the zero that ends it
    static constexpr std::string_view tooLong = "carries a look text that is too long to be one";
    static constexpr std::size_t maxChunk = 0x7FFFFFFF;
    /// Room for the language and the translated keyword before the text.
    static constexpr std::size_t maxText = maxLookText + 1024;

    [[noreturn]] void fail(std::string_view what) const
    {
        throw FileError(FileError::Code::unknown, m_name.string() + ": " + std::string(what));
    }

    void readAll(std::span<std::uint8_t> bytes) const
    {
        if (m_source(bytes) != bytes.size())
            fail("is a PNG file that has been cut off");
    }

    [[nodiscard]] std::uint32_t readNumber() const
    {
        std::array<std::uint8_t, 4> bytes{};
        readAll(bytes);
        return bigEndian(bytes);
    }

    /// Reads a chunk through a small buffer, whatever its size claims to be, and gives its type. Leaves
    /// international text in `m_text`.
    std::string readChunk()
    {
        std::size_t left = readNumber();
        if (left > maxChunk)
            fail("is a damaged PNG file: a chunk has an impossible size");
        std::string type(4, '\0');
        readAll({reinterpret_cast<std::uint8_t*>(type.data()), type.size()});
        std::uint32_t sum = libdeflate_crc32(0, type.data(), type.size());
        m_text.clear();
        while (left > 0) {
            const std::span part = std::span(m_buffer).first(std::min(left, m_buffer.size()));
            readAll(part);
            left -= part.size();
            sum = libdeflate_crc32(sum, part.data(), part.size());
            if (type == "iTXt" && m_text.size() <= maxText)
                m_text.insert(m_text.end(), part.begin(), part.end());
        }
        if (readNumber() != sum)
            fail("is a damaged PNG file: the check sum of a chunk is wrong");
        return type;
    }

    /// The text in what follows the keyword: two bytes on compression, the language, the translated keyword.
    [[nodiscard]] std::string lookIn(std::string_view data) const
    {
        if (m_text.size() > maxText)
            fail(tooLong);
        const std::size_t language = data.find('\0', 2);
        const std::size_t translated = language == data.npos ? data.npos : data.find('\0', language + 1);
        if (translated == data.npos || (data[0] != 0 && data[0] != 1) || data[1] != 0)
            fail("is a damaged PNG file: its look is not laid out as text");
        const std::string_view stored = data.substr(translated + 1);
        if (data[0] == 1)
            return inflate(stored);
        if (stored.size() > maxLookText)
            fail(tooLong);
        return std::string(stored);
    }

    [[nodiscard]] std::string inflate(std::string_view stored) const
    {
        const std::unique_ptr<libdeflate_decompressor, FreeDecompressor> decompressor(
            libdeflate_alloc_decompressor());
        if (!decompressor)
            throw std::bad_alloc();
        const auto inflated = std::make_unique_for_overwrite<char[]>(maxLookText);
        std::size_t size = 0;
        switch (libdeflate_zlib_decompress(decompressor.get(), stored.data(), stored.size(), inflated.get(),
                                           maxLookText, &size)) {
        case LIBDEFLATE_SUCCESS:
            return {inflated.get(), size};
        case LIBDEFLATE_INSUFFICIENT_SPACE:
            fail(tooLong);
        default:
            fail("is a damaged PNG file: its look cannot be decompressed");
        }
    }

    fs::path m_name;
    ByteSource m_source;
    std::vector<std::uint8_t> m_buffer = std::vector<std::uint8_t>(std::size_t{64} << 10);
    std::string m_text;
};

} // namespace

void writePng(const Picture& picture, const std::optional<std::string>& lookJson, const fs::path& path,
              const std::function<bool()>& isWanted)
{
    const auto encoded = encodePng(picture, lookJson);
    if (isWanted())
        FileWriter(path).write(encoded);
}

std::optional<std::string> readLookText(const fs::path& path)
{
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.isOpen())
        failReading(errno, path);
    return LookReader(path, [&](std::span<std::uint8_t> bytes) { return readUpTo(file, bytes, path); })
        .read();
}

std::optional<std::string> lookTextIn(std::string_view png, const fs::path& name)
{
    return LookReader(name,
                      [png](std::span<std::uint8_t> bytes) mutable {
                          const std::size_t count =
                              png.copy(reinterpret_cast<char*>(bytes.data()), bytes.size());
                          png.remove_prefix(count);
                          return count;
                      })
        .read();
}

} // namespace tessel
