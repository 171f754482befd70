// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/icon_mask.h"

#include <QImage>

#include <algorithm>
#include <bit>
#include <cstdlib>

namespace tessel {

namespace {

constexpr unsigned bitsPerWord = 32;

/// Of each of the three colours: below it lies what a desktop may change in a picture by converting it.
constexpr int tolerance = 4;

/// In pixels to every side.
constexpr int rim = 2;

bool differ(QRgb one, QRgb other)
{
    return std::abs(qRed(one) - qRed(other)) > tolerance ||
           std::abs(qGreen(one) - qGreen(other)) > tolerance ||
           std::abs(qBlue(one) - qBlue(other)) > tolerance;
}

/// The word of a row at `index`, its bits spread by the rim to both sides.
std::uint32_t spread(std::span<const std::uint32_t> row, std::size_t index)
{
    const std::uint32_t word = row[index];
    const std::uint32_t before = index > 0 ? row[index - 1] : 0;
    const std::uint32_t after = index + 1 < row.size() ? row[index + 1] : 0;
    std::uint32_t result = word;
    for (unsigned distance = 1; distance <= rim; ++distance) {
        result |= (word << distance) | (before >> (bitsPerWord - distance));
        result |= (word >> distance) | (after << (bitsPerWord - distance));
    }
    return result;
}

} // namespace

IconMask::IconMask(QSize size)
    : m_size(size)
    , m_wordsPerRow((static_cast<unsigned>(size.width()) + bitsPerWord - 1) / bitsPerWord)
    , m_differs(m_wordsPerRow * static_cast<std::size_t>(size.height()))
{
}

IconMask::Row IconMask::row(int y) const
{
    return Row(m_differs).subspan(static_cast<std::size_t>(y) * m_wordsPerRow, m_wordsPerRow);
}

void IconMask::setPixel(int x, int y, bool differs)
{
    const auto column = static_cast<unsigned>(x);
    std::uint32_t& word = m_differs[static_cast<std::size_t>(y) * m_wordsPerRow + column / bitsPerWord];
    const std::uint32_t bit = 1U << (column % bitsPerWord);
    word = differs ? word | bit : word & ~bit;
}

void IconMask::compare(const QImage& part, const QImage& shown, QPoint at)
{
    for (int y = 0; y < shown.height(); ++y) {
        const auto* wanted = reinterpret_cast<const QRgb*>(part.constScanLine(y));
        const auto* found = reinterpret_cast<const QRgb*>(shown.constScanLine(y));
        for (int x = 0; x < shown.width(); ++x)
            setPixel(at.x() + x, at.y() + y, differ(wanted[x], found[x]));
    }
}

double IconMask::share() const
{
    long pixels = 0;
    for (const std::uint32_t word : m_differs)
        pixels += std::popcount(word);
    return static_cast<double>(pixels) / (double(m_size.width()) * double(m_size.height()));
}

std::vector<std::uint32_t> IconMask::shapeAround() const
{
    std::vector<std::uint32_t> shape(m_differs.size(), ~0U);
    for (int y = 0; y < m_size.height(); ++y) {
        const std::size_t first = static_cast<std::size_t>(y) * m_wordsPerRow;
        for (int near = std::max(y - rim, 0); near <= std::min(y + rim, m_size.height() - 1); ++near)
            for (std::size_t index = 0; index < m_wordsPerRow; ++index)
                shape[first + index] &= ~spread(row(near), index);
    }
    return shape;
}

} // namespace tessel
