// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/deflate_join.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <vector>

namespace tessel {

namespace {

constexpr unsigned longestCode = 15;
constexpr std::size_t endOfBlock = 256;

[[noreturn]] void refuse()
{
    throw std::invalid_argument("what is to be left open is no deflate stream");
}

/// Reads bits, the lowest of each byte first, and zeros behind the end.
class BitReader
{
public:
    explicit BitReader(std::span<const std::uint8_t> bytes) : m_bytes(bytes) {}

    /// Makes sure that there are 56 bits to look at.
    void fill()
    {
        std::uint64_t more = 0;
        if (m_next + sizeof more <= m_bytes.size())
            for (unsigned i = 0; i < sizeof more; ++i) // one load
                more |= std::uint64_t{m_bytes[m_next + i]} << 8 * i;
        else
            for (unsigned i = 0; m_next + i < m_bytes.size(); ++i)
                more |= std::uint64_t{m_bytes[m_next + i]} << 8 * i;
        m_bits |= more << m_count;
        m_next += (63 - m_count) / 8;
        m_count |= 56U;
    }

    [[nodiscard]] std::uint64_t bits() const { return m_bits; }

    void skip(unsigned count)
    {
        m_bits >>= count;
        m_count -= count;
    }

    unsigned take(unsigned count)
    {
        fill();
        const auto value = static_cast<unsigned>(m_bits & ((1U << count) - 1U));
        skip(count);
        return value;
    }

    /// In bits from the beginning.
    [[nodiscard]] std::size_t place() const { return 8 * m_next - m_count; }

    void moveToByte(std::size_t byte)
    {
        m_next = byte;
        m_bits = 0;
        m_count = 0;
    }

    [[nodiscard]] bool isBehindEnd() const { return place() > 8 * m_bytes.size(); }

private:
    std::span<const std::uint8_t> m_bytes;
    std::size_t m_next = 0;
    std::uint64_t m_bits = 0;
    unsigned m_count = 0;
};

/// What comes behind a code and its further bits.
enum class Next : std::uint8_t
{
    symbol, ///< a literal or a length
    distance,
    nothing ///< of the block
};

struct Step
{
    std::uint8_t bits = 0; ///< of the code and those that belong to it
    Next next = Next::nothing;
};

using Lengths = std::span<const std::uint8_t>;

/// Sets, for all bits that begin with a code of these lengths, what it means.
/// \param meanings as many as its longest code has bits, to the power of two, or that times a power of two
template<typename Meaning, typename MeaningOf>
void enterCodes(Lengths lengths, std::span<Meaning> meanings, MeaningOf meaningOf)
{
    std::array<unsigned, longestCode + 1> counts{};
    for (const std::uint8_t length : lengths)
        ++counts.at(length);
    counts[0] = 0;
    std::array<unsigned, longestCode + 1> codes{};
    for (std::size_t length = 1; length < codes.size(); ++length)
        codes.at(length) = (codes.at(length - 1) + counts.at(length - 1)) << 1U;
    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
        const unsigned length = lengths[symbol];
        if (length == 0)
            continue;
        const unsigned code = codes.at(length)++;
        std::size_t index = 0; // codes are read from their highest bit on
        for (unsigned bit = 0; bit < length; ++bit)
            index |= std::size_t{code >> bit & 1U} << (length - 1 - bit);
        const Meaning meaning = meaningOf(symbol, length);
        for (; index < meanings.size(); index += std::size_t{1} << length)
            meanings[index] = meaning;
    }
}

/// Bits behind the code of a length of a match, or of a distance, of which more have the same number.
unsigned furtherBits(std::size_t symbol, unsigned alike)
{
    return symbol < 2 * alike ? 0U : static_cast<unsigned>(symbol / alike) - 1U;
}

Step symbolStep(std::size_t symbol, unsigned length)
{
    if (symbol < endOfBlock)
        return {static_cast<std::uint8_t>(length), Next::symbol};
    if (symbol == endOfBlock)
        return {static_cast<std::uint8_t>(length), Next::nothing};
    static constexpr std::size_t longestMatch = 285; // has no further bits
    const unsigned further = symbol == longestMatch ? 0U : furtherBits(symbol - endOfBlock - 1, 4);
    return {static_cast<std::uint8_t>(length + further), Next::distance};
}

Step distanceStep(std::size_t symbol, unsigned length)
{
    return {static_cast<std::uint8_t>(length + furtherBits(symbol, 2)), Next::symbol};
}

/// Where its mark is, and the first bit behind it.
struct LastBlock
{
    std::size_t mark;
    std::size_t end;
};

/// Goes through a stream from block to block, without making anything of it.
class BlockWalker
{
public:
    explicit BlockWalker(std::span<const std::uint8_t> stream) : m_reader(stream) {}

    LastBlock findLast()
    {
        for (;;) {
            const std::size_t begin = m_reader.place();
            const bool isLast = m_reader.take(1) == 1;
            skipBlock();
            if (m_reader.isBehindEnd())
                refuse();
            if (isLast)
                return {.mark = begin, .end = m_reader.place()};
        }
    }

private:
    void skipBlock()
    {
        switch (m_reader.take(2)) {
        case 0:
            return skipStored();
        case 1:
            return skipCodes(fixedSymbols(), fixedDistances());
        case 2:
            return skipDynamic();
        default:
            refuse();
        }
    }

    void skipStored()
    {
        m_reader.moveToByte((m_reader.place() + 7) / 8);
        const unsigned length = m_reader.take(16);
        m_reader.take(16); // its complement
        m_reader.moveToByte(m_reader.place() / 8 + length);
    }

    static Lengths fixedSymbols()
    {
        static const auto lengths = [] {
            std::array<std::uint8_t, 288> filled{};
            for (std::size_t symbol = 0; symbol < filled.size(); ++symbol)
                filled.at(symbol) = symbol < 144 ? 8 : symbol < 256 ? 9 : symbol < 280 ? 7 : 8;
            return filled;
        }();
        return lengths;
    }

    static Lengths fixedDistances()
    {
        static const auto lengths = [] {
            std::array<std::uint8_t, 30> filled{};
            filled.fill(5);
            return filled;
        }();
        return lengths;
    }

    void skipDynamic()
    {
        const std::size_t symbols = m_reader.take(5) + 257;
        const std::size_t distances = m_reader.take(5) + 1;
        const std::size_t orders = m_reader.take(4) + 4;
        static constexpr std::array<std::uint8_t, 19> order{16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                                            11, 4,  12, 3, 13, 2, 14, 1, 15};
        static constexpr unsigned orderBits = 3;
        std::array<std::uint8_t, order.size()> meta{};
        for (std::size_t i = 0; i < orders && i < order.size(); ++i)
            meta.at(order.at(i)) = static_cast<std::uint8_t>(m_reader.take(orderBits));
        static constexpr unsigned metaBits = 7; // the longest that three bits can tell
        std::array<std::uint8_t, 1U << metaBits> metaSymbols{};
        enterCodes(meta, std::span<std::uint8_t>(metaSymbols),
                   [](std::size_t symbol, unsigned /*length*/) { return static_cast<std::uint8_t>(symbol); });
        std::array<std::uint8_t, 288 + 32> lengths{};
        for (std::size_t at = 0; at < symbols + distances;) {
            m_reader.fill();
            const std::uint8_t symbol = metaSymbols.at(m_reader.bits() % metaSymbols.size());
            m_reader.skip(meta.at(symbol));
            const bool isLength = symbol <= longestCode;
            const std::uint8_t length = isLength       ? symbol
                                        : symbol == 16 ? lengths.at(std::max<std::size_t>(at, 1) - 1)
                                                       : std::uint8_t{0};
            const unsigned times = isLength       ? 1
                                   : symbol == 16 ? 3 + m_reader.take(2)
                                   : symbol == 17 ? 3 + m_reader.take(3)
                                                  : 11 + m_reader.take(7);
            if (at + times > symbols + distances)
                refuse();
            std::fill_n(lengths.begin() + static_cast<std::ptrdiff_t>(at), times, length);
            at += times;
        }
        skipCodes(Lengths(lengths).first(symbols), Lengths(lengths).subspan(symbols, distances));
    }

    /// Symbols and the distances of matches, up to the end of the block.
    void skipCodes(Lengths symbols, Lengths distances)
    {
        const unsigned indexBits =
            std::max(*std::ranges::max_element(symbols), *std::ranges::max_element(distances));
        const std::size_t length = std::size_t{1} << indexBits;
        m_steps.assign(2 * length, Step());
        enterCodes(symbols, std::span(m_steps).first(length), symbolStep);
        enterCodes(distances, std::span(m_steps).last(length), distanceStep);
        for (std::size_t first = 0;;) {
            m_reader.fill();
            if (m_reader.isBehindEnd())
                refuse();
            // A length and its distance have at most 48 bits.
            for (int i = 0; i < 2; ++i) {
                const Step step = m_steps[first | (m_reader.bits() & (length - 1))];
                m_reader.skip(step.bits);
                if (step.next == Next::nothing)
                    return;
                first = static_cast<std::size_t>(step.next) << indexBits;
            }
        }
    }

    BitReader m_reader;
    std::vector<Step> m_steps;
};

} // namespace

std::size_t leaveOpen(std::span<std::uint8_t> room, std::size_t length)
{
    const auto [mark, end] = BlockWalker(room.first(length)).findLast();
    room[mark / 8] &= static_cast<std::uint8_t>(~(1U << mark % 8));
    // An empty block of whole bytes: three zeros, others up to a byte, and a length of 0 with its complement.
    static constexpr unsigned headerBits = 3;
    static constexpr std::array<std::uint8_t, 4> noBytes{0x00, 0x00, 0xFF, 0xFF};
    const std::size_t filled = (end + headerBits + 7) / 8;
    if (end % 8 != 0)
        room[end / 8] &= static_cast<std::uint8_t>((1U << end % 8) - 1U);
    std::ranges::fill(room.subspan((end + 7) / 8, filled - (end + 7) / 8), std::uint8_t{0});
    std::ranges::copy(noBytes, room.subspan(filled).begin());
    return filled + noBytes.size();
}

} // namespace tessel
