// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/png_file.h"
#include "support/file_size_limit.h"

#include <QImage>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libdeflate.h>

#include <algorithm>
#include <fcntl.h>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <pthread.h>
#include <random>
#include <set>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <vector>

namespace tessel {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using namespace std::string_literals;

using Bytes = std::vector<std::byte>;

Picture paint(int width, int height, const std::function<std::uint32_t(int x, int y)>& color)
{
    Picture picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.row(y)[static_cast<std::size_t>(x)] = color(x, y);
    return picture;
}

/// Clearly different colours, the first 256 of which differ in every channel.
std::uint32_t colorNumber(int i)
{
    const auto n = static_cast<std::uint32_t>(i);
    return ((n * 37U) & 0xFFU) << 16 | ((n * 59U + n / 256U) & 0xFFU) << 8 | ((n * 101U) & 0xFFU);
}

Picture withColors(int count, int width, int height)
{
    return paint(width, height,
                 [=](int x, int y) { return 0xFF000000 | colorNumber((x + y * width) % count); });
}

std::vector<std::uint32_t> opaquePixels(const Picture& picture)
{
    std::vector<std::uint32_t> pixels(picture.pixels.get(), picture.pixels.get() + picture.pixelCount());
    for (std::uint32_t& pixel : pixels)
        pixel |= 0xFF000000;
    return pixels;
}

std::string_view textOf(const Bytes& file)
{
    return {reinterpret_cast<const char*>(file.data()), file.size()};
}

/// A byte of a chunk's data.
int byteOf(const Bytes& file, std::string_view chunk, std::size_t place)
{
    return textOf(file).substr(textOf(file).find(chunk)).at(4 + place);
}

int bitsOf(const Bytes& file)
{
    return byteOf(file, "IHDR", 8);
}

bool isIndexed(const Bytes& file)
{
    const int colorType = byteOf(file, "IHDR", 9);
    EXPECT_TRUE(colorType == 3 || (colorType == 2 && bitsOf(file) == 8)) << colorType;
    return colorType == 3;
}

/// The pixels as libpng reads them, from within Qt.
std::vector<std::uint32_t> pixelsOf(std::string_view file)
{
    const QImage image =
        QImage::fromData(QByteArray::fromRawData(file.data(), static_cast<qsizetype>(file.size())))
            .convertToFormat(QImage::Format_RGB32);
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const std::uint32_t*>(image.constScanLine(y));
        pixels.insert(pixels.end(), line, line + image.width());
    }
    return pixels;
}

void expectLossless(const Picture& picture)
{
    EXPECT_EQ(pixelsOf(textOf(encodePng(picture, std::nullopt))), opaquePixels(picture));
}

TEST(PngEncoder, PicksTheSmallestFormatWithoutLoss)
{
    for (const auto& [colors, bits] :
         {std::pair{1, 1}, {2, 1}, {3, 2}, {4, 2}, {5, 4}, {16, 4}, {17, 8}, {256, 8}, {257, 8}}) {
        for (const int width : {1, 3, 7, 9, 64, 131}) {
            SCOPED_TRACE(testing::Message() << colors << " colours, " << width << " wide");
            const Picture picture = withColors(colors, width, 260);
            const Bytes file = encodePng(picture, std::nullopt);
            EXPECT_EQ(bitsOf(file), bits);
            EXPECT_EQ(isIndexed(file), colors <= 256);
            EXPECT_EQ(byteOf(file, "sRGB", 0), 0) << "perceptual";
            EXPECT_EQ(pixelsOf(textOf(file)), opaquePixels(picture));
        }
    }
    expectLossless(withColors(1, 1, 1));
}

TEST(PngEncoder, FindsColorsThatComeLate)
{
    // Each half alone would fit into a table of 256; and the last pixel alone makes the 257th.
    expectLossless(paint(16, 200, [](int x, int y) { return colorNumber(x + y / 100 * 300 + y % 10 * 16); }));
    for (const int count : {256, 257}) {
        const Picture picture = paint(16, 400, [&](int x, int y) {
            return x == 15 && y == 399 ? colorNumber(count - 1) : colorNumber((x + y * 16) % (count - 1));
        });
        expectLossless(picture);
        EXPECT_EQ(isIndexed(encodePng(picture, std::nullopt)), count == 256);
    }
}

TEST(PngEncoder, IgnoresAlpha)
{
    const auto color = [](int x, int) { return x % 2 == 0 ? 0x00102030U : 0x00FFEEDDU; };
    const Picture mixed =
        paint(40, 70, [&](int x, int y) { return color(x, y) | static_cast<std::uint32_t>(x * y) << 24; });
    expectLossless(mixed);
    EXPECT_EQ(bitsOf(encodePng(mixed, std::nullopt)), 1);
}

/// Pictures of all the kinds that need a treatment of their own; tall, so that threads share them.
std::vector<Picture> variedPictures()
{
    const auto gray = [](int value) { return static_cast<std::uint32_t>(value & 0xFF) * 0x010101U; };
    std::mt19937 random(7);
    const auto noise = [&random] { return static_cast<std::uint32_t>(random()); };
    std::vector<Picture> pictures;
    // Cells, whose rows repeat also across the cuts between groups of rows.
    std::vector<std::vector<int>> cells(50, std::vector<int>(31));
    for (std::vector<int>& row : cells)
        std::generate(row.begin(), row.end(), [&] { return static_cast<int>(noise() % 5); });
    pictures.push_back(paint(301, 500, [&](int x, int y) {
        return colorNumber(cells[static_cast<std::size_t>(y) / 10][static_cast<std::size_t>(x) / 10]);
    }));
    pictures.push_back(paint(301, 500, [&](int x, int y) { return colorNumber(x / 24 + y / 150 * 400); }));
    pictures.push_back(paint(301, 500, [&](int, int) { return noise(); }));
    pictures.push_back(paint(301, 500, [&](int x, int y) { return gray(x * 2) ^ gray(y * 3) << 4; }));
    pictures.push_back(
        paint(301, 500, [&](int x, int y) { return gray(x * x / 40 + y) | (noise() & 0x010101U); }));
    pictures.push_back(
        paint(301, 500, [&](int x, int y) { return gray(x * x / 300) + (gray(y * y / 700) << 8); }));
    pictures.push_back(
        paint(301, 500, [&](int x, int y) { return colorNumber(x * 13 % 300) ^ gray(y / 4); }));
    pictures.push_back(
        paint(301, 500, [&](int x, int y) { return gray(x / 3 + y / 5) + (noise() & 0x030303U); }));
    // So large that it is compressed in parts.
    pictures.push_back(
        paint(2000, 700, [&](int x, int y) { return colorNumber((x / 9 * 7 % 200) ^ (y / 50)); }));
    return pictures;
}

/// The numbers of the filters that a file's rows use.
std::set<int> filtersIn(const Bytes& file, const Picture& picture)
{
    const int pixelBits = bitsOf(file) * (isIndexed(file) ? 1 : 3);
    const std::size_t line = (static_cast<std::size_t>(picture.width * pixelBits) + 7) / 8 + 1;
    std::string rows(line * static_cast<std::size_t>(picture.height), '\0');
    const std::string_view data = textOf(file).substr(textOf(file).find("IDAT") + 4);
    const std::unique_ptr<libdeflate_decompressor, decltype(&libdeflate_free_decompressor)> decompressor(
        libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
    EXPECT_EQ(libdeflate_zlib_decompress(decompressor.get(), data.data(), data.size() - 16, rows.data(),
                                         rows.size(), nullptr),
              LIBDEFLATE_SUCCESS);
    std::set<int> filters;
    for (std::size_t at = 0; at < rows.size(); at += line)
        filters.insert(rows[at]);
    return filters;
}

TEST(PngEncoder, IsLosslessWithEveryFilter)
{
    std::set<int> used;
    for (const Picture& picture : variedPictures()) {
        expectLossless(picture);
        used.merge(filtersIn(encodePng(picture, std::nullopt), picture));
    }
    EXPECT_THAT(used, ElementsAre(0, 1, 2, 3, 4)) << "a filter went untested";
}

TEST(PngEncoder, MakesTheSameFileWithAnyNumberOfThreads)
{
    for (const Picture& picture : variedPictures()) {
        const Bytes file = encodePng(picture, std::nullopt, 1);
        for (const unsigned threads : {2U, 3U, 8U, 1000U})
            EXPECT_EQ(encodePng(picture, std::nullopt, threads), file) << threads << " threads";
    }
}

/// As long as it lives, no thread can be made: its stack would not fit the address space.
class NoThreads
{
public:
    NoThreads()
    {
        pthread_getattr_default_np(&m_before);
        pthread_attr_t attributes;
        pthread_attr_init(&attributes);
        pthread_attr_setstacksize(&attributes, std::size_t{1} << 62);
        pthread_setattr_default_np(&attributes);
        pthread_attr_destroy(&attributes);
    }
    ~NoThreads()
    {
        pthread_setattr_default_np(&m_before);
        pthread_attr_destroy(&m_before);
    }
    NoThreads(const NoThreads&) = delete;
    NoThreads& operator=(const NoThreads&) = delete;

private:
    pthread_attr_t m_before{};
};

TEST(PngEncoder, DoesWithoutThreadsThatCannotBeMade)
{
    const Picture picture = withColors(300, 128, 2000);
    const Bytes file = encodePng(picture, std::nullopt, 1);
    const NoThreads none;
    EXPECT_THROW(std::thread([] {}).join(), std::system_error);
    EXPECT_EQ(encodePng(picture, std::nullopt, 8), file);
}

TEST(PngEncoder, RefusesWhatNoPngCanHold)
{
    EXPECT_THROW((void)encodePng(Picture(0, 5), std::nullopt), std::invalid_argument);
    EXPECT_THROW((void)encodePng(withColors(1, 1, 1), std::string(maxLookText + 1, 'x')), std::length_error);
}

std::string bigEndian(std::size_t value)
{
    return {static_cast<char>(value >> 24), static_cast<char>(value >> 16), static_cast<char>(value >> 8),
            static_cast<char>(value)};
}

std::string chunk(const std::string& type, const std::string& data)
{
    const std::string body = type + data;
    return bigEndian(data.size()) + body + bigEndian(libdeflate_crc32(0, body.data(), body.size()));
}

std::string zlib(const std::string& text)
{
    const std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> compressor(
        libdeflate_alloc_compressor(6), libdeflate_free_compressor);
    std::string out(libdeflate_zlib_compress_bound(compressor.get(), text.size()), '\0');
    out.resize(libdeflate_zlib_compress(compressor.get(), text.data(), text.size(), out.data(), out.size()));
    return out;
}

const std::string json = R"({"imagePath":"/Bilder/Größe – 麺.jpg","seed":12})";

class PngFile : public testing::Test
{
protected:
    const QTemporaryDir temporary;
    const fs::path folder = temporary.path().toStdString();
    const fs::path file = folder / "picture.png";
    const Picture picture = withColors(5, 20, 20);

    /// A small PNG as bytes, with extra chunks before and after its picture data.
    [[nodiscard]] std::string bytesWith(const std::string& before, const std::string& after) const
    {
        std::string text(textOf(encodePng(picture, std::nullopt)));
        text.insert(text.size() - 12, after);
        return text.insert(text.find("PLTE") - 4, before);
    }

    [[nodiscard]] std::optional<std::string> lookOf(const std::string& bytes) const
    {
        std::ofstream(file, std::ios::binary) << bytes;
        return readLookText(file);
    }

    /// What is said about a file with this content; empty if nothing.
    [[nodiscard]] std::string problemWith(const std::string& bytes) const
    {
        try {
            (void)lookOf(bytes);
        } catch (const FileError& error) {
            EXPECT_THAT(error.what(), HasSubstr(file.string()));
            return error.what();
        }
        return {};
    }

    /// The error of a write that must fail.
    [[nodiscard]] FileError failureOf(const fs::path& path) const
    {
        try {
            writePng(picture, json, path);
        } catch (const FileError& error) {
            EXPECT_THAT(error.what(), HasSubstr(path.string()));
            return error;
        }
        ADD_FAILURE() << "wrote " << path;
        return {FileError::Code::unknown, {}};
    }

    [[nodiscard]] std::vector<std::string> names() const
    {
        std::vector<std::string> found;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder))
            found.push_back(entry.path().filename().string());
        std::sort(found.begin(), found.end());
        return found;
    }
};

std::string contentOf(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

TEST_F(PngFile, CarriesTheLook)
{
    writePng(picture, json, file);
    EXPECT_EQ(readLookText(file), json);
    const std::string content = contentOf(file);
    EXPECT_THAT(content, HasSubstr(chunk("iTXt", "Look\0\0\0\0\0"s + json)));
    EXPECT_EQ(pixelsOf(content), opaquePixels(picture));
    EXPECT_LT(content.find("iTXt"), content.find("IDAT"));

    writePng(picture, "", file);
    EXPECT_EQ(readLookText(file), "");
    writePng(picture, std::nullopt, file);
    EXPECT_EQ(readLookText(file), std::nullopt);
}

TEST_F(PngFile, FindsTheLookWhereverItStands)
{
    const std::string look = chunk("iTXt", "Look\0\0\0\0\0"s + json);
    EXPECT_EQ(lookOf(bytesWith(look, "")), json);
    EXPECT_EQ(lookOf(bytesWith("", look)), json);
    EXPECT_EQ(lookOf(bytesWith("", chunk("iTXt", "Look\0\1\0en\0Aussehen\0"s + zlib(json)))), json);
    EXPECT_EQ(lookOf(bytesWith(chunk("iTXt", "Looks\0\0\0\0\0no"s), look)), json);
    EXPECT_EQ(lookOf(bytesWith(chunk("iTXt", "Look\0\0\0\0\0"s + "first"), look)), "first");
    EXPECT_EQ(lookOf(bytesWith(chunk("tEXt", "Look\0no"s), chunk("iTXt", "Look"))), std::nullopt);
}

TEST_F(PngFile, RefusesHostileText)
{
    const std::string start = "Look\0\0\0\0\0"s;
    const std::string packed = "Look\0\1\0\0\0"s;
    EXPECT_THAT(problemWith(bytesWith(chunk("iTXt", start + std::string(maxLookText + 1, ' ')), "")),
                HasSubstr("too long"));
    EXPECT_THAT(problemWith(bytesWith(chunk("iTXt", start + std::string(maxLookText * 2, ' ')), "")),
                HasSubstr("too long"));
    EXPECT_THAT(problemWith(bytesWith(chunk("iTXt", packed + zlib(std::string(maxLookText * 4, ' '))), "")),
                HasSubstr("too long"));
    EXPECT_EQ(lookOf(bytesWith(chunk("iTXt", packed + zlib(std::string(maxLookText, ' '))), "")),
              std::string(maxLookText, ' '));
    EXPECT_THAT(problemWith(bytesWith(bigEndian(0x7FFFFFFF) + "iTXt" + start, "")), HasSubstr("cut off"));
    EXPECT_THAT(problemWith(bytesWith(bigEndian(0xFFFFFFFF) + "iTXt" + start, "")),
                HasSubstr("impossible size"));
    EXPECT_THAT(problemWith(bytesWith(chunk("iTXt", packed + "not zlib"), "")), HasSubstr("decompressed"));
    for (const std::string& data : {"Look\0"s, "Look\0\0"s, "Look\0\0\0"s, "Look\0\0\0en\0"s,
                                    "Look\0\2\0\0\0x"s, "Look\0\xFF\0\0\0x"s, "Look\0\0\1\0\0x"s})
        EXPECT_THAT(problemWith(bytesWith(chunk("iTXt", data), "")), HasSubstr("laid out")) << data;
}

TEST_F(PngFile, NoticesEveryCutAndEveryWrongByte)
{
    writePng(withColors(3, 4, 4), json, file);
    const std::string whole = contentOf(file);
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_THAT(problemWith(whole.substr(0, size)), HasSubstr(size < 8 ? "not a PNG" : "cut off"))
            << size;
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const int change : {0x01, 0x20, 0x80}) {
            std::string damaged = whole;
            damaged[at] = static_cast<char>(damaged[at] ^ change);
            EXPECT_THAT(problemWith(damaged), HasSubstr("PNG")) << "byte " << at << " changed by " << change;
        }
    }
}

TEST_F(PngFile, SaysWhyItCannotBeRead)
{
    const auto problem = [](const fs::path& path) -> std::string {
        try {
            (void)readLookText(path);
        } catch (const FileError& error) {
            return error.what();
        }
        return {};
    };
    EXPECT_THAT(problem(folder), HasSubstr("it is a folder"));
    EXPECT_THAT(problem(folder / "none.png"), HasSubstr("no such file"));
    EXPECT_THAT(problem(folder / "none" / "none.png"),
                HasSubstr("there is no folder " + (folder / "none").string()));
    EXPECT_THAT(problem("/dev/null"), HasSubstr("not a PNG"));
}

TEST_F(PngFile, ReplacesAnOlderFileWithTheUsualMode)
{
    std::ofstream(file) << "old";
    const mode_t mask = umask(027);
    writePng(picture, json, file);
    umask(mask);
    EXPECT_EQ(readLookText(file), json);
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
    EXPECT_THAT(names(), ElementsAre("picture.png"));
}

TEST_F(PngFile, SaysWhyItCannotBeWritten)
{
    EXPECT_THAT(failureOf(folder).what(), HasSubstr("it is a folder"));
    EXPECT_THAT(failureOf(folder / "").what(), HasSubstr("it is a folder"));
    const FileError missing = failureOf(folder / "none" / "picture.png");
    EXPECT_THAT(missing.what(), HasSubstr("there is no folder " + (folder / "none").string()));
    EXPECT_EQ(missing.code, FileError::Code::noPermission);
    EXPECT_THAT(failureOf("/dev/full").what(), HasSubstr("the disk is full"));
    EXPECT_THAT(failureOf(folder / std::string(300, 'x')).what(), HasSubstr("the name is too long"));
    EXPECT_THAT(failureOf("").what(), HasSubstr("no such file"));
    fs::create_symlink("round.png", folder / "round.png");
    EXPECT_THAT(failureOf(folder / "round.png").what(), HasSubstr("symbolic links"));
    EXPECT_THAT(names(), ElementsAre("round.png"));
    std::ofstream(file) << "a file";
    EXPECT_THAT(failureOf(file / "picture.png").what(), HasSubstr("is not a folder"));
}

/// As the root user, goes on as one who may write next to nothing.
class AsNobody
{
public:
    AsNobody() : m_worked(m_user != 0 || seteuid(65534) == 0) {}
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;
    ~AsNobody() { (void)!seteuid(m_user); }

    [[nodiscard]] bool worked() const { return m_worked; }

private:
    const uid_t m_user = geteuid();
    const bool m_worked;
};

TEST_F(PngFile, NeedsPermission)
{
    std::ofstream(file) << "old";
    fs::permissions(file, fs::perms(0));
    fs::permissions(folder, fs::perms(0555));
    {
        const AsNobody nobody;
        if (!nobody.worked())
            GTEST_SKIP() << "root may do everything, and there is no other user here";
        const FileError error = failureOf(file);
        EXPECT_EQ(error.code, FileError::Code::noPermission);
        EXPECT_THAT(error.what(), HasSubstr("permission denied"));
        try {
            (void)readLookText(file);
            ADD_FAILURE() << "read a file that may not be read";
        } catch (const FileError& unreadable) {
            EXPECT_EQ(unreadable.code, FileError::Code::noPermission);
        }
    }
    fs::permissions(folder, fs::perms(0755));
    fs::permissions(file, fs::perms(0644));
    EXPECT_EQ(contentOf(file), "old");
}

TEST_F(PngFile, KeepsTheOldFileWhenTheDiskFillsUp)
{
    std::ofstream(file) << "old";
    const FileError error = [this] {
        const FileSizeLimit limit(100);
        return failureOf(file);
    }();
    EXPECT_THAT(error.what(), HasSubstr("larger than is allowed"));
    EXPECT_EQ(error.code, FileError::Code::unknown);
    EXPECT_EQ(contentOf(file), "old");
    EXPECT_THAT(names(), ElementsAre("picture.png"));
}

TEST_F(PngFile, FollowsLinks)
{
    fs::create_directory(folder / "real");
    std::ofstream(folder / "real" / "old.png") << "old";
    fs::create_symlink("real/old.png", folder / "second.png");
    fs::create_symlink("second.png", folder / "link.png");
    fs::create_symlink("real/new.png", folder / "dangling.png");
    writePng(picture, json, folder / "link.png");
    writePng(picture, json, folder / "dangling.png");
    EXPECT_TRUE(fs::is_symlink(folder / "link.png"));
    EXPECT_TRUE(fs::is_symlink(folder / "dangling.png"));
    EXPECT_EQ(readLookText(folder / "real" / "old.png"), json);
    EXPECT_EQ(readLookText(folder / "real" / "new.png"), json);
}

TEST_F(PngFile, WritesIntoPipesAndNamelessFiles)
{
    writePng(picture, json, file);
    const std::string expected = contentOf(file);

    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    std::string received;
    std::thread reader([&] { received = contentOf(folder / "pipe"); });
    writePng(picture, json, folder / "pipe");
    reader.join();
    EXPECT_EQ(received, expected);

    const int open = ::open((folder / "gone").c_str(), O_RDWR | O_CREAT, 0600);
    ASSERT_GE(open, 0);
    fs::remove(folder / "gone");
    const std::string nameless = "/proc/self/fd/" + std::to_string(open);
    writePng(picture, json, nameless);
    EXPECT_EQ(contentOf(nameless), expected);
    ::close(open);
    EXPECT_THAT(names(), ElementsAre("picture.png", "pipe"));
}

} // namespace
} // namespace tessel
