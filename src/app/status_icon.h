// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QIcon>
#include <QImage>

#include <array>
#include <cstdint>
#include <string_view>

namespace tessel {

/// The icon as text: 24 rows of 24 characters from top to bottom, "R" for ink and anything else for none.
using IconMask = std::array<std::string_view, 24>;

/// A bowl with three wisps of steam.
[[nodiscard]] const IconMask& bowlMask();

/// A mask drawn in black on nothing: 33 x 30 pixels for 22 x 20 art pixels of 1.5 pixels each, without
/// anti-aliasing, so that art pixels are one and two pixels wide by turns. The outermost column of each side
/// and the outermost two rows are not drawn.
[[nodiscard]] QImage statusImage(const IconMask& mask);

/// What an icon is drawn on.
enum class PanelTone : std::uint8_t
{
    light,
    dark
};

/// A mask in a square of `side` pixels, at least 22, in the largest whole multiple of its art pixels that
/// fits: light ink for a dark panel and the reverse. A faint rim of the other tone, which cannot be seen
/// where the panel is as expected, keeps it visible where it is not.
[[nodiscard]] QImage panelImage(const IconMask& mask, int side, PanelTone tone);

/// The bowl in the sizes that panels ask for.
[[nodiscard]] QIcon statusIcon(PanelTone tone);

/// What panels of a desktop are like: GNOME's and Xfce's are dark unless changed, others follow the colours
/// of windows.
/// \param desktop the value of XDG_CURRENT_DESKTOP
[[nodiscard]] PanelTone panelTone(const QString& desktop, const QColor& windowColor);

} // namespace tessel
