// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/png_encoder.h"

#include <libdeflate.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>
#include <future>
#include <isa-l/igzip_lib.h>
#include <memory>
#include <new>
#include <span>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace tessel {

namespace {

/// The filter bytes of PNG: what a row's bytes are taken as the difference from.
enum class Filter : std::uint8_t
{
    none,
    sub,
    up,
    average,
    paeth
};

enum class ColorType : std::uint8_t
{
    trueColor = 2,
    indexed = 3
};

constexpr std::size_t maxColors = 256;
constexpr std::size_t maxChunk = 0x7FFFFFFF;
/// Deflate with the largest window, fast.
constexpr std::array<std::uint8_t, 2> zlibHeader{0x78, 0x5E};
/// Rows that share one filter, and how many of them it is tried on.
constexpr int groupRows = 64;
constexpr std::size_t sampleRows = 2;

/// Compresses parts of one deflate stream (RFC 1951), each on its own, so that several can be at the same
/// time.
class PartCompressor
{
public:
    /// \param isLast whether the stream ends with it
    /// \return what is in the file, until the next part
    std::span<const std::uint8_t> compress(std::span<std::uint8_t> part, bool isLast)
    {
        // What cannot be compressed becomes longer by a small share of it.
        m_room.resize(std::max(m_room.size(), part.size() + part.size() / 8 + leastRoom));
        isal_deflate_init(m_stream.get());
        m_stream->level = level;
        m_stream->level_buf = m_levelRoom.data();
        m_stream->level_buf_size = static_cast<std::uint32_t>(m_levelRoom.size());
        m_stream->end_of_stream = isLast ? 1 : 0;
        m_stream->flush = isLast ? NO_FLUSH : FULL_FLUSH;
        m_stream->next_in = part.data();
        m_stream->avail_in = static_cast<std::uint32_t>(part.size());
        m_stream->next_out = m_room.data();
        m_stream->avail_out = static_cast<std::uint32_t>(m_room.size());
        if (isal_deflate(m_stream.get()) != COMP_OK || m_stream->avail_in != 0 || m_stream->avail_out == 0)
            throw std::runtime_error("a part of the picture cannot be compressed");
        return std::span(m_room).first(m_stream->total_out);
    }

private:
    static constexpr std::size_t leastRoom = std::size_t{64} << 10;
    static constexpr std::uint32_t level = 3;

    std::unique_ptr<isal_zstream> m_stream = std::make_unique<isal_zstream>();
    std::vector<std::uint8_t> m_levelRoom = std::vector<std::uint8_t>(ISAL_DEF_LVL3_DEFAULT);
    std::vector<std::uint8_t> m_room;
};

/// Rows `first` to before `last`: what one thread works on.
struct Band
{
    int first = 0;
    int last = 0;
};

/// One band for each thread, cut between groups so that the cuts leave no trace in the file.
std::vector<Band> makeBands(int height, unsigned threads)
{
    const int groups = (height - 1) / groupRows + 1;
    const int count = static_cast<int>(std::clamp(threads, 1U, static_cast<unsigned>(groups)));
    std::vector<Band> bands;
    for (int i = 0, first = 0; i < count; ++i) {
        const int lastGroup = static_cast<int>(std::int64_t{groups} * (i + 1) / count);
        const int last = lastGroup == groups ? height : lastGroup * groupRows;
        bands.push_back({first, last});
        first = last;
    }
    return bands;
}

/// Calls work(0) to work(count - 1), at the same time as far as the system has threads for them and the rest
/// on this one, and passes on what one of them throws.
template<class Work>
void inParallel(std::size_t count, const Work& work)
{
    std::vector<std::future<void>> others;
    for (std::size_t i = 1; i < count; ++i)
        others.push_back(std::async(std::launch::async | std::launch::deferred, [&work, i] { work(i); }));
    work(0);
    for (std::future<void>& other : others)
        other.get();
}

bool equalsRowAbove(const Picture& picture, int y)
{
    if (y == 0)
        return false;
    const std::span<const std::uint32_t> row = picture.row(y);
    return std::memcmp(row.data(), picture.row(y - 1).data(), row.size_bytes()) == 0;
}

/// Numbers colours in the order in which they turn up.
class ColorTable
{
public:
    /// The number of this colour, alpha aside; none if it would be the 257th.
    std::optional<std::uint8_t> indexOf(std::uint32_t pixel)
    {
        const std::uint32_t key = pixel | opaque;
        std::size_t slot = (key * 0x9E3779B1U) >> (32 - slotBits);
        while (m_keys[slot] != key) {
            if (m_keys[slot] == 0) {
                if (colors.size() == maxColors)
                    return std::nullopt;
                m_keys[slot] = key;
                m_indices[slot] = static_cast<std::uint8_t>(colors.size());
                colors.push_back(key);
                break;
            }
            slot = (slot + 1) % m_keys.size();
        }
        return m_indices[slot];
    }

    std::vector<std::uint32_t> colors;

private:
    static constexpr std::uint32_t opaque = 0xFF000000;
    static constexpr int slotBits = 10;
    std::array<std::uint32_t, 1U << slotBits> m_keys{};
    std::array<std::uint8_t, 1U << slotBits> m_indices{};
};

/// Writes the colour number of every pixel; false at the 257th colour.
bool indexRow(std::span<const std::uint32_t> pixels, ColorTable& table, std::uint8_t* numbers)
{
    std::uint32_t last = ~pixels[0];
    std::uint8_t number = 0;
    for (const std::uint32_t pixel : pixels) {
        if (pixel != last) {
            const std::optional<std::uint8_t> found = table.indexOf(pixel);
            if (!found)
                return false;
            number = *found;
            last = pixel;
        }
        *numbers++ = number;
    }
    return true;
}

using Numbers = std::array<std::uint8_t, maxColors>;

template<unsigned bits>
void packNumbers(std::span<const std::uint8_t> numbers, const Numbers& meaning, std::uint8_t* out)
{
    constexpr std::size_t perByte = 8 / bits;
    const std::size_t whole = numbers.size() / perByte;
    const std::uint8_t* next = numbers.data();
    for (std::size_t i = 0; i < whole; ++i) {
        unsigned byte = 0;
        for (std::size_t k = 0; k < perByte; ++k)
            byte = byte << bits | meaning[*next++];
        *out++ = static_cast<std::uint8_t>(byte);
    }
    const std::size_t rest = numbers.size() % perByte;
    if (rest == 0)
        return;
    unsigned byte = 0;
    for (std::size_t k = 0; k < perByte; ++k)
        byte = byte << bits | (k < rest ? meaning[*next++] : 0U);
    *out = static_cast<std::uint8_t>(byte);
}

/// The rows of an indexed PNG.
class IndexedRows
{
public:
    static constexpr std::size_t step = 1;
    /// Averages and gradients of palette indices mean nothing.
    static constexpr std::array filters{Filter::none, Filter::sub, Filter::up};

    /// The picture as indices; none if it has more than 256 colours.
    static std::optional<IndexedRows> of(const Picture& picture, const std::vector<Band>& bands)
    {
        IndexedRows rows(picture, bands);
        std::vector<ColorTable> tables(bands.size());
        std::atomic<bool> tooMany = false;
        inParallel(bands.size(), [&](std::size_t i) {
            for (int y = bands[i].first; y < bands[i].last && !tooMany; ++y)
                if (equalsRowAbove(picture, y))
                    rows.m_repeated[static_cast<std::size_t>(y)] = 1;
                else if (!indexRow(picture.row(y), tables[i], rows.numbersOf(y)))
                    tooMany = true;
        });
        if (tooMany || !rows.joinTables(tables))
            return std::nullopt;
        return rows;
    }

    [[nodiscard]] unsigned bits() const
    {
        const std::size_t count = m_table.colors.size();
        return count <= 2 ? 1 : count <= 4 ? 2 : count <= 16 ? 4 : 8;
    }

    [[nodiscard]] std::size_t rowBytes() const { return (m_width * bits() + 7) / 8; }
    [[nodiscard]] const std::vector<std::uint32_t>& colors() const { return m_table.colors; }
    [[nodiscard]] bool repeatsRowAbove(int y) const { return m_repeated[static_cast<std::size_t>(y)] != 0; }

    void writeRow(int y, std::uint8_t* out) const
    {
        while (repeatsRowAbove(y))
            --y;
        const std::span<const std::uint8_t> row(numbersOf(y), m_width);
        const Numbers& meaning = m_meanings[bandOf(y)];
        switch (bits()) {
        case 1:
            return packNumbers<1>(row, meaning, out);
        case 2:
            return packNumbers<2>(row, meaning, out);
        case 4:
            return packNumbers<4>(row, meaning, out);
        default:
            return packNumbers<8>(row, meaning, out);
        }
    }

private:
    IndexedRows(const Picture& picture, std::vector<Band> bands)
        : m_width(static_cast<std::size_t>(picture.width))
        , m_bands(std::move(bands))
        , m_repeated(static_cast<std::size_t>(picture.height))
        , m_numbers(std::make_unique_for_overwrite<std::uint8_t[]>(picture.pixelCount()))
        , m_meanings(m_bands.size())
    {
    }

    [[nodiscard]] std::uint8_t* numbersOf(int y) const
    {
        return m_numbers.get() + static_cast<std::size_t>(y) * m_width;
    }

    [[nodiscard]] std::size_t bandOf(int y) const
    {
        std::size_t band = 0;
        while (y >= m_bands[band].last)
            ++band;
        return band;
    }

    /// Each band numbered the colours for itself; gives every colour its number in the file.
    bool joinTables(const std::vector<ColorTable>& tables)
    {
        for (std::size_t band = 0; band < tables.size(); ++band) {
            for (std::size_t i = 0; i < tables[band].colors.size(); ++i) {
                const std::optional<std::uint8_t> number = m_table.indexOf(tables[band].colors[i]);
                if (!number)
                    return false;
                m_meanings[band][i] = *number;
            }
        }
        return true;
    }

    std::size_t m_width;
    std::vector<Band> m_bands;
    std::vector<std::uint8_t> m_repeated; ///< per row: it equals the one above, and its numbers are not set
    std::unique_ptr<std::uint8_t[]> m_numbers;
    std::vector<Numbers> m_meanings; ///< per band: from its own numbers to those of the file
    ColorTable m_table;
};

/// The rows of a 24-bit PNG.
class TrueColorRows
{
public:
    static constexpr std::size_t step = 3;
    static constexpr std::array filters{Filter::none, Filter::sub, Filter::up, Filter::average,
                                        Filter::paeth};

    explicit TrueColorRows(const Picture& source) : m_picture(source) {}

    [[nodiscard]] std::size_t rowBytes() const { return static_cast<std::size_t>(m_picture.width) * 3; }
    [[nodiscard]] bool repeatsRowAbove(int y) const { return equalsRowAbove(m_picture, y); }

    void writeRow(int y, std::uint8_t* out) const
    {
        for (const std::uint32_t pixel : m_picture.row(y)) {
            *out++ = static_cast<std::uint8_t>(pixel >> 16);
            *out++ = static_cast<std::uint8_t>(pixel >> 8);
            *out++ = static_cast<std::uint8_t>(pixel);
        }
    }

private:
    const Picture& m_picture;
};

/// Filters run over whole blocks of this many bytes, so that the compiler turns them into vector code.
constexpr std::size_t block = 64;

/// An unfiltered row, with zeros to its left as the filters expect and room for a last whole block.
class RowBuffer
{
public:
    explicit RowBuffer(std::size_t bytes) : m_storage(margin + bytes + block) {}
    [[nodiscard]] std::uint8_t* data() { return m_storage.data() + margin; }
    [[nodiscard]] const std::uint8_t* data() const { return m_storage.data() + margin; }

private:
    static constexpr std::size_t margin = 16;
    std::vector<std::uint8_t> m_storage;
};

template<std::size_t step, class Predict>
void subtractBlock(const std::uint8_t* row, const std::uint8_t* above, std::uint8_t* __restrict out,
                   Predict predict)
{
    for (std::size_t i = 0; i < block; ++i) {
        const int prediction = predict(row[i - step], above[i], above[i - step]);
        out[i] = static_cast<std::uint8_t>(row[i] - prediction);
    }
}

/// Writes the row's bytes less what `predict` makes of the bytes to the left, above, and above left.
template<std::size_t step, class Predict>
void subtract(const RowBuffer& row, const RowBuffer& above, std::span<std::uint8_t> out, Predict predict)
{
    std::size_t at = 0;
    for (; at + block <= out.size(); at += block)
        subtractBlock<step>(row.data() + at, above.data() + at, out.data() + at, predict);
    std::array<std::uint8_t, block> rest;
    subtractBlock<step>(row.data() + at, above.data() + at, rest.data(), predict);
    std::copy_n(rest.data(), out.size() - at, out.data() + at);
}

/// The one of the three that is nearest to left + above - aboveLeft, in this order where two are as near.
inline int paethPrediction(int left, int above, int aboveLeft)
{
    const int fromLeft = std::abs(above - aboveLeft);
    const int fromAbove = std::abs(left - aboveLeft);
    const int fromAboveLeft = std::abs(left + above - 2 * aboveLeft);
    const int upper = fromAbove <= fromAboveLeft ? above : aboveLeft;
    return fromLeft <= fromAbove && fromLeft <= fromAboveLeft ? left : upper;
}

/// Writes a row as it goes into the file: the filter's number, then the filtered bytes.
template<std::size_t step>
void filterRow(Filter filter, const RowBuffer& row, const RowBuffer& above, std::span<std::uint8_t> out)
{
    out[0] = static_cast<std::uint8_t>(filter);
    out = out.subspan(1);
    switch (filter) {
    case Filter::none:
        std::copy_n(row.data(), out.size(), out.data());
        return;
    case Filter::sub:
        return subtract<step>(row, above, out, [](int left, int, int) { return left; });
    case Filter::up:
        return subtract<step>(row, above, out, [](int, int up, int) { return up; });
    case Filter::average:
        return subtract<step>(row, above, out, [](int left, int up, int) { return (left + up) / 2; });
    case Filter::paeth:
        return subtract<step>(row, above, out, paethPrediction);
    }
}

/// Filters rows. `Rows` has rowBytes(), repeatsRowAbove(y), writeRow(y, out), the filters that are worth a
/// try and the `step` to the pixel on the left in bytes.
template<class Rows>
class RowFilter
{
public:
    explicit RowFilter(const Rows& source)
        : m_rows(source)
        , m_lineBytes(source.rowBytes() + 1)
        , m_row(source.rowBytes())
        , m_above(source.rowBytes())
    {
    }

    /// \param filtered for each row of the band the filter's number and the filtered bytes
    void run(Band band, std::span<std::uint8_t> filtered)
    {
        m_out = filtered;
        for (int first = band.first; first < band.last; first += groupRows)
            filterGroup({first, std::min(first + groupRows, band.last)});
    }

private:
    void filterGroup(Band group)
    {
        const Filter filter = chooseFilter(group);
        bool rowIsLoaded = false;
        for (int y = group.first; y < group.last; ++y) {
            const std::span<std::uint8_t> line = m_out.first(m_lineBytes);
            m_out = m_out.subspan(m_lineBytes);
            if (m_rows.repeatsRowAbove(y)) {
                std::fill(line.begin(), line.end(), std::uint8_t{0});
                line[0] = static_cast<std::uint8_t>(Filter::up);
                continue;
            }
            // m_row still holds the row above, or one that the row above repeats.
            if (rowIsLoaded)
                std::swap(m_row, m_above);
            else
                loadAbove(y);
            rowIsLoaded = true;
            m_rows.writeRow(y, m_row.data());
            filterRow<Rows::step>(filter, m_row, m_above, line);
        }
    }

    /// Tries each filter on the group's first rows that are not repetitions.
    Filter chooseFilter(Band group)
    {
        for (std::vector<std::uint8_t>& sample : m_samples)
            sample.clear();
        std::size_t found = 0;
        for (int y = group.first; y < group.last && found < sampleRows; ++y) {
            if (m_rows.repeatsRowAbove(y))
                continue;
            loadAbove(y);
            m_rows.writeRow(y, m_row.data());
            ++found;
            for (std::size_t i = 0; i < m_samples.size(); ++i) {
                m_samples[i].resize(found * m_lineBytes);
                filterRow<Rows::step>(Rows::filters[i], m_row, m_above,
                                      std::span(m_samples[i]).last(m_lineBytes));
            }
        }
        return found == 0 ? Filter::up : smallest();
    }

    /// The filter whose sample shrinks most.
    Filter smallest()
    {
        std::size_t best = 0;
        std::size_t bestSize = SIZE_MAX;
        for (std::size_t i = 0; i < m_samples.size(); ++i) {
            const std::size_t size = m_compressor.compress(m_samples[i], true).size();
            if (size < bestSize) {
                best = i;
                bestSize = size;
            }
        }
        return Rows::filters[best];
    }

    /// Above the first row PNG imagines zeros.
    void loadAbove(int y)
    {
        if (y > 0)
            m_rows.writeRow(y - 1, m_above.data());
        else
            std::fill_n(m_above.data(), m_lineBytes - 1, std::uint8_t{0});
    }

    const Rows& m_rows;
    std::span<std::uint8_t> m_out; ///< of the rows that are not filtered yet
    std::size_t m_lineBytes;
    RowBuffer m_row;
    RowBuffer m_above;
    PartCompressor m_compressor;
    std::array<std::vector<std::uint8_t>, Rows::filters.size()> m_samples;
};

/// A part of the picture as it is in the file: a deflate stream which that of the next part follows.
struct Part
{
    std::vector<std::uint8_t> bytes;
    std::uint32_t sum = 0; ///< Adler-32 of what it was
    std::size_t before = 0;
};

/// What a thread filters and compresses parts with.
template<class Rows>
class PartEncoder
{
public:
    explicit PartEncoder(const Rows& source) : m_lineBytes(source.rowBytes() + 1), m_filter(source) {}

    /// \param isLast nothing follows it
    Part encode(Band band, bool isLast)
    {
        m_filtered.resize(static_cast<std::size_t>(band.last - band.first) * m_lineBytes);
        m_filter.run(band, m_filtered);
        const std::span<const std::uint8_t> bytes = m_compressor.compress(m_filtered, isLast);
        static constexpr std::uint32_t emptySum = 1;
        return {.bytes = {bytes.begin(), bytes.end()},
                .sum = libdeflate_adler32(emptySum, m_filtered.data(), m_filtered.size()),
                .before = m_filtered.size()};
    }

private:
    std::size_t m_lineBytes;
    RowFilter<Rows> m_filter;
    std::vector<std::uint8_t> m_filtered;
    PartCompressor m_compressor;
};

/// Whole groups of rows, so many that a new beginning costs nothing.
std::vector<Band> makeParts(int height, std::size_t lineBytes)
{
    static constexpr std::size_t leastBytes = std::size_t{256} << 10;
    const std::size_t groups = (leastBytes - 1) / (groupRows * lineBytes) + 1;
    const int rows = groupRows * static_cast<int>(groups);
    std::vector<Band> parts;
    for (int first = 0; first < height; first += rows)
        parts.push_back({first, std::min(first + rows, height)});
    return parts;
}

template<class Rows>
std::vector<Part> encodeParts(const Rows& rows, int height, unsigned threads)
{
    const std::vector<Band> bands = makeParts(height, rows.rowBytes() + 1);
    std::vector<Part> parts(bands.size());
    std::atomic<std::size_t> next = 0;
    inParallel(std::clamp<std::size_t>(threads, 1, bands.size()), [&](std::size_t /*thread*/) {
        PartEncoder<Rows> encoder(rows);
        for (std::size_t i = next++; i < bands.size(); i = next++)
            parts[i] = encoder.encode(bands[i], i + 1 == bands.size());
    });
    return parts;
}

/// The Adler-32 of two things behind each other.
std::uint32_t joinSums(std::uint32_t first, const Part& second)
{
    static constexpr std::uint64_t base = 65521;
    const std::uint64_t low = (first & 0xFFFFU) + base - 1;
    const std::uint64_t lows = low + (second.sum & 0xFFFFU);
    const std::uint64_t highs = (first >> 16) + (second.sum >> 16) + second.before % base * low;
    return static_cast<std::uint32_t>(highs % base << 16 | lows % base);
}

std::string bigEndian(std::uint32_t value)
{
    std::string bytes;
    for (const int shift : {24, 16, 8, 0})
        bytes.push_back(static_cast<char>(value >> shift & 0xFF));
    return bytes;
}

void append(std::vector<std::byte>& file, std::string_view text)
{
    const std::span bytes = std::as_bytes(std::span(text));
    file.insert(file.end(), bytes.begin(), bytes.end());
}

void append(std::vector<std::byte>& file, std::span<const std::uint8_t> data)
{
    const std::span bytes = std::as_bytes(data);
    file.insert(file.end(), bytes.begin(), bytes.end());
}

/// \param size of its data
/// \param appendData called to append that
template<class AppendData>
void appendChunk(std::vector<std::byte>& file, std::string_view type, std::size_t size, AppendData appendData)
{
    append(file, bigEndian(static_cast<std::uint32_t>(size)));
    const std::size_t start = file.size();
    append(file, type);
    appendData();
    append(file, bigEndian(libdeflate_crc32(0, file.data() + start, file.size() - start)));
}

void appendChunk(std::vector<std::byte>& file, std::string_view type, std::string_view data)
{
    appendChunk(file, type, data.size(), [&] { append(file, data); });
}

/// The parts as one zlib stream.
void appendParts(std::vector<std::byte>& file, const std::vector<Part>& parts, std::size_t size)
{
    appendChunk(file, "IDAT", size, [&] {
        append(file, zlibHeader);
        std::uint32_t sum = 1;
        for (const Part& part : parts) {
            append(file, part.bytes);
            sum = joinSums(sum, part);
        }
        append(file, bigEndian(sum));
    });
}

std::string headerChunk(const Picture& picture, unsigned bits, ColorType colorType)
{
    std::string data = bigEndian(static_cast<std::uint32_t>(picture.width));
    data += bigEndian(static_cast<std::uint32_t>(picture.height));
    data += {static_cast<char>(bits), static_cast<char>(colorType), '\0', '\0', '\0'};
    return data;
}

std::string paletteChunk(const std::vector<std::uint32_t>& colors)
{
    std::string data;
    for (const std::uint32_t color : colors)
        data += bigEndian(color).substr(1);
    return data;
}

std::string lookChunk(const std::string& json)
{
    // Not compressed, no language, no translated keyword.
    return std::string(lookKeyword) + std::string(5, '\0') + json;
}

void check(const Picture& picture, const std::optional<std::string>& lookJson)
{
    if (picture.width < 1 || picture.height < 1)
        throw std::invalid_argument("a picture without pixels cannot be a PNG");
    if (lookJson && lookJson->size() > maxLookText)
        throw std::length_error("the look is too long to go into a PNG");
}

} // namespace

std::vector<std::byte> encodePng(const Picture& picture, const std::optional<std::string>& lookJson,
                                 unsigned threads)
{
    check(picture, lookJson);
    const std::optional<IndexedRows> indexed = IndexedRows::of(picture, makeBands(picture.height, threads));
    const std::vector<Part> parts = indexed ? encodeParts(*indexed, picture.height, threads)
                                            : encodeParts(TrueColorRows(picture), picture.height, threads);
    std::size_t size = zlibHeader.size() + sizeof(Part::sum);
    for (const Part& part : parts)
        size += part.bytes.size();
    if (size > maxChunk)
        throw std::length_error("the picture is too large for a PNG");

    std::vector<std::byte> file;
    file.reserve(size + (lookJson ? lookJson->size() : 0) + 2048);
    append(file, "\x89PNG\r\n\x1a\n");
    appendChunk(file, "IHDR",
                indexed ? headerChunk(picture, indexed->bits(), ColorType::indexed)
                        : headerChunk(picture, 8, ColorType::trueColor));
    appendChunk(file, "sRGB", {"\0", 1});
    if (lookJson)
        appendChunk(file, "iTXt", lookChunk(*lookJson));
    if (indexed)
        appendChunk(file, "PLTE", paletteChunk(indexed->colors()));
    appendParts(file, parts, size);
    appendChunk(file, "IEND", {});
    return file;
}

} // namespace tessel
