// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QIcon>
#include <QImage>
#include <QString>

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tessel {

/// The icon as text: 24 rows of 24 characters from top to bottom, "R" for ink and anything else for none; "C"
/// for what is inside of it.
using IconMask = std::array<std::string_view, 24>;

/// A bowl with three wisps of steam.
[[nodiscard]] const IconMask& bowlMask();

/// A mask drawn in black on nothing, as a screen at twice the usual resolution has it: 33 x 30 pixels for
/// 22 x 20 art pixels of 1.5 pixels each, without anti-aliasing, so that art pixels are one and two pixels
/// wide by turns. The outermost column of each side and the outermost two rows are not drawn. Panels are
/// offered the same drawing in their own ink.
[[nodiscard]] QImage statusImage(const IconMask& mask);

/// What an icon is drawn on.
enum class PanelTone : std::uint8_t
{
    light,
    dark
};

/// What surrounds the ink of an icon. A rim of the other tone keeps it legible where it turns out to lie on
/// what it was not made for, and is hardly seen elsewhere; the inside of the bowl stays clear of it.
enum class Rim : std::uint8_t
{
    none,
    contrasting
};

/// A mask in a square of `side` pixels, with light ink for something dark and the reverse: in the largest
/// multiple of half its art pixels that fits, or, below 22, made smaller evenly.
[[nodiscard]] QImage panelImage(const IconMask& mask, int side, PanelTone tone, Rim rim = Rim::none);

/// The bowl in the sizes that panels ask for.
/// \param name of the theme's icon for panels that draw it in a colour of their own; empty for none
[[nodiscard]] QIcon statusIcon(PanelTone tone, const QString& name = {});

/// The tone of a place for icons.
/// \param isDark what is known of it; nothing where it has the colours of windows
[[nodiscard]] PanelTone panelTone(std::optional<bool> isDark, const QColor& windowColor);

} // namespace tessel
