// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"

#include <QRect>

#include <cstdint>
#include <optional>

namespace tessel {

/// What there is at the screen's edge.
enum class Mode : std::uint8_t
{
    handle, ///< only the round handle
    quick,  ///< the handle and the strip of quick actions
    open    ///< the editor
};

/// Where everything of the panel at the screen's edge lies, in points. The panel is as large as its largest
/// mode needs; what each mode shows is within it, measured from its top left corner.
struct EdgeLayout
{
    QRect workArea; ///< of the screen
    Edge edge = Edge::left;

    /// The editor's height.
    [[nodiscard]] int panelHeight() const;

    /// The panel, among all screens.
    [[nodiscard]] QRect panelFrame() const;

    /// What a mode shows.
    [[nodiscard]] QRect contentFrame(Mode mode) const;

    /// Where the pointer counts as being on it: a little around.
    [[nodiscard]] QRect activeFrame(Mode mode) const;

    /// The quick action at a height of the panel; none between and below them.
    [[nodiscard]] std::optional<int> quickRow(int y) const;
};

inline constexpr int quickActionCount = 5;

} // namespace tessel
