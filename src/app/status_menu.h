// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/actions.h"
#include "app/menu_row.h"
#include "edge/edge_layout.h"
#include "model/store.h"
#include "platform/login_item.h"

#include <functional>
#include <string>
#include <vector>

namespace tessel {

/// What the menu starts beyond changes of the store.
struct StatusCommands
{
    std::function<void(Action action)> perform;
    std::function<void()> toggleEditor;
    std::function<void()> saveAsPreset;
    std::function<void(bool on)> setLaunchAtLogin;
    std::function<void()> explainStills;  ///< nullptr where wallpapers can play
    std::function<void()> setUpShortcuts; ///< nullptr where the desktop has none to give
    std::function<void()> checkForUpdates;
    std::function<void(const QString& address)> openWebPage;
};

/// The rows of the status menu for the present state. They change the store when run.
/// \param mode what there is at the screen's edge; nothing where no window of ours can be
[[nodiscard]] std::vector<MenuRow> statusMenuRows(Store& store, LoginItem::Status login,
                                                  std::optional<Mode> mode, const StatusCommands& commands);

/// The presets, to be put on the desktop, and "Save as Preset...".
[[nodiscard]] std::vector<MenuRow> presetRows(Store& store, const std::function<void()>& saveAsPreset);

/// A preset's name as a menu can show it: on one line, no wider than 320 pixels in the font of menus, and the
/// look's title in place of one without anything to see.
[[nodiscard]] QString menuTitle(const Preset& preset);

} // namespace tessel
