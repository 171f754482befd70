// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPoint>
#include <QSize>

#include <cstdint>
#include <span>
#include <vector>

class QImage;

namespace tessel {

/// Where a desktop shows something other than its picture: icons, their names, whatever else lies on it.
class IconMask
{
public:
    explicit IconMask(QSize size);

    /// Compares a part of the picture with what the desktop shows there.
    /// \param part,shown of the same size, Format_RGB32
    /// \param at where the part's top left corner is
    void compare(const QImage& part, const QImage& shown, QPoint at);

    /// How much of the picture is hidden, 0 to 1.
    [[nodiscard]] double share() const;

    /// The shape of a window that leaves all that free with a narrow rim, which keeps light letters on the
    /// shade that they were drawn on: a bit for each pixel, the lowest first, rows padded to 32 bits.
    [[nodiscard]] std::vector<std::uint32_t> shapeAround() const;

private:
    using Row = std::span<const std::uint32_t>;

    [[nodiscard]] Row row(int y) const;
    void setPixel(int x, int y, bool differs);

    QSize m_size;
    std::size_t m_wordsPerRow;
    std::vector<std::uint32_t> m_differs;
};

} // namespace tessel
