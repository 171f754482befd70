// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/deflate_join.h"

#include <gtest/gtest.h>
#include <libdeflate.h>

#include <algorithm>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace tessel {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes compress(const std::string& text, int level)
{
    const std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> compressor(
        libdeflate_alloc_compressor(level), libdeflate_free_compressor);
    Bytes stream(libdeflate_deflate_compress_bound(compressor.get(), text.size()));
    stream.resize(libdeflate_deflate_compress(compressor.get(), text.data(), text.size(), stream.data(),
                                              stream.size()));
    return stream;
}

/// All that a stream holds, which must be the whole of it.
std::string decompress(const Bytes& stream, std::size_t size)
{
    const std::unique_ptr<libdeflate_decompressor, decltype(&libdeflate_free_decompressor)> decompressor(
        libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
    std::string text(size, '\0');
    std::size_t read = 0;
    EXPECT_EQ(libdeflate_deflate_decompress_ex(decompressor.get(), stream.data(), stream.size(), text.data(),
                                               text.size(), &read, nullptr),
              LIBDEFLATE_SUCCESS);
    EXPECT_EQ(read, stream.size());
    return text;
}

Bytes leftOpen(Bytes stream)
{
    const std::size_t length = stream.size();
    stream.resize(length + openEndLength, 0xAA);
    stream.resize(leaveOpen(stream, length));
    return stream;
}

/// Texts whose blocks are stored, have the fixed codes and codes of their own, are many, and end at every
/// bit of a byte.
std::vector<std::string> variedTexts()
{
    std::mt19937 random(3);
    const auto filled = [&](std::size_t size, unsigned values) {
        std::string text(size, '\0');
        std::ranges::generate(text, [&] { return static_cast<char>(random() % values * (random() % 3)); });
        return text;
    };
    std::vector<std::string> texts{{}, "a", std::string(300'000, 'x'), filled(200'000, 256)};
    for (const unsigned values : {2U, 7U, 60U})
        for (std::size_t size = 1; size < 1'000'000; size = size * 5 + 1)
            texts.push_back(filled(size, values));
    // Matches near and far, and a change of what comes.
    texts.push_back(texts.back().substr(0, 9'000) + filled(20'000, 256) + texts.back().substr(0, 9'000) +
                    std::string(70'000, 'y') + filled(100'000, 4));
    return texts;
}

TEST(DeflateJoin, OneStreamFollowsAnother)
{
    for (const int level : {0, 1, 4, 6, 12}) {
        Bytes joined;
        std::string all;
        for (const std::string& text : variedTexts()) {
            const Bytes part = leftOpen(compress(text, level));
            joined.insert(joined.end(), part.begin(), part.end());
            all += text;
        }
        const Bytes last = compress("the end", level);
        joined.insert(joined.end(), last.begin(), last.end());
        EXPECT_TRUE(decompress(joined, all.size() + 7) == all + "the end") << "level " << level;
    }
}

TEST(DeflateJoin, RefusesWhatIsNoStream)
{
    const Bytes whole = compress(variedTexts().back(), 4);
    for (const std::size_t length : {std::size_t{0}, std::size_t{1}, whole.size() / 2, whole.size() - 1})
        EXPECT_THROW((void)leftOpen({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)}),
                     std::invalid_argument)
            << length;
    EXPECT_THROW((void)leftOpen(Bytes(100, 0xFF)), std::invalid_argument);
}

} // namespace
} // namespace tessel
