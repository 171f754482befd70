// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/png_file.h"

#include "base/file_writer.h"

#include <QCoreApplication>
#include <libdeflate.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <new>
#include <string_view>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tessel {

namespace fs = std::filesystem;

namespace {

struct PngFileText
{
    Q_DECLARE_TR_FUNCTIONS(PngFileText)
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

[[noreturn]] void failReading(int error, const fs::path& path)
{
    throw FileError(error == EACCES ? FileError::Code::noPermission : FileError::Code::unknown,
                    //: between the name of a file and the reason
                    path.string() + ": " + PngFileText::tr("cannot be read").toStdString() + ": " +
                        reasonFor(error, path));
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
            //: behind the name of a file
            fail(PngFileText::tr("is not a PNG file"));
        if (readChunk() != "IHDR")
            fail(PngFileText::tr("is a damaged PNG file: it does not begin with its header"));
        std::optional<std::string> look;
        for (std::string type = readChunk(); type != "IEND"; type = readChunk())
            if (type == "iTXt" && !look && std::string_view(m_text).starts_with(keyword))
                look = lookIn(std::string_view(m_text).substr(keyword.size()));
        return look;
    }

private:
    static constexpr std::array<std::uint8_t, 8> signature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    static constexpr std::string_view keyword{lookKeyword, sizeof lookKeyword}; // with the zero that ends it
    static constexpr std::size_t maxChunk = 0x7FFFFFFF;
    /// Room for the language and the translated keyword before the text.
    static constexpr std::size_t maxText = maxLookText + 1024;

    /// \param what is said of the file, behind its name
    [[noreturn]] void fail(const QString& what) const
    {
        throw FileError(FileError::Code::unknown, m_name.string() + ": " + what.toStdString());
    }

    [[noreturn]] void failForLength() const
    {
        fail(PngFileText::tr("carries a look text that is too long to be one"));
    }

    void readAll(std::span<std::uint8_t> bytes) const
    {
        if (m_source(bytes) != bytes.size())
            fail(PngFileText::tr("is a PNG file that has been cut off"));
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
            fail(PngFileText::tr("is a damaged PNG file: a chunk has an impossible size"));
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
            fail(PngFileText::tr("is a damaged PNG file: the check sum of a chunk is wrong"));
        return type;
    }

    /// The text in what follows the keyword: two bytes on compression, the language, the translated keyword.
    [[nodiscard]] std::string lookIn(std::string_view data) const
    {
        if (m_text.size() > maxText)
            failForLength();
        const std::size_t language = data.find('\0', 2);
        const std::size_t translated = language == data.npos ? data.npos : data.find('\0', language + 1);
        if (translated == data.npos || (data[0] != 0 && data[0] != 1) || data[1] != 0)
            fail(PngFileText::tr("is a damaged PNG file: its look is not laid out as text"));
        const std::string_view stored = data.substr(translated + 1);
        if (data[0] == 1)
            return inflate(stored);
        if (stored.size() > maxLookText)
            failForLength();
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
            failForLength();
        default:
            fail(PngFileText::tr("is a damaged PNG file: its look cannot be decompressed"));
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
        writeFile(path, encoded);
}

std::optional<std::string> readLookText(const fs::path& path)
{
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.isOpen())
        failReading(errno, path);
    return readLookText([&](std::span<std::uint8_t> bytes) { return readUpTo(file, bytes, path); }, path);
}

std::optional<std::string> readLookText(ByteSource source, const fs::path& name)
{
    return LookReader(name, std::move(source)).read();
}

} // namespace tessel
