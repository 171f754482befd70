// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QKeySequence>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace tessel {

/// What can be asked of the program as a whole: through its menu, over D-Bus and from its desktop file.
enum class Action : std::uint8_t
{
    newWallpaper,
    previousWallpaper,
    toggleMotion,
    openEditor,
    quit
};

/// By what name it is asked for; none for a name that means nothing.
[[nodiscard]] QString actionName(Action action);
[[nodiscard]] std::optional<Action> actionNamed(const QString& name);
[[nodiscard]] QStringList actionNames();

/// What people read.
[[nodiscard]] QString actionTitle(Action action);

/// Works while the menu or a window of ours has the focus; empty for none.
[[nodiscard]] QKeySequence actionShortcut(Action action);

} // namespace tessel
