// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QKeySequence>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace tessel {

/// A row of a menu, described by itself: what it says and what it does. One without a title is a separator,
/// one with children opens a submenu.
struct MenuRow
{
    QString id;    ///< stays the same while the title changes; unique within its menu as a rule
    QString title; ///< as people read it, no mnemonics
    QKeySequence shortcut{};
    bool enabled = true;
    std::optional<bool> checked{}; ///< absent for a row that has no checkmark
    QString group{};               ///< of rows of which no more than one is checked; empty for none
    std::function<void()> run{};
    std::vector<MenuRow> children{};

    [[nodiscard]] bool isSeparator() const { return title.isEmpty(); }
};

} // namespace tessel
