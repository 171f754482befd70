// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/dialogs.h"
#include "editor/editor_services.h"
#include "model/store.h"
#include "platform/login_item.h"

#include <functional>

namespace tessel {

/// Turns launch at login on or off; what goes wrong is said in an alert.
/// \param done whether it is now as asked for
void setLaunchAtLogin(LoginItem& login, Dialogs& dialogs, bool on,
                      const std::function<void(bool matches)>& done);

/// Asks for a name and makes the desktop's look and motion a preset of that name. Nothing happens while there
/// is no look on the desktop.
void saveAsPreset(Store& store, Dialogs& dialogs);

/// Asks the software centre for a newer version of the program.
void checkForUpdates(Dialogs& dialogs);

/// Opens an address in the user's browser, or shows it where there is none.
void openWebPage(const QString& address, Dialogs& dialogs);

/// What the editor needs of its surroundings: the file dialogs above all.
/// \param playsWallpapers or the desktop only shows stills
/// \param opened called as one opens, and as it closes before anything else is
[[nodiscard]] EditorServices editorServices(Dialogs& dialogs, bool playsWallpapers,
                                            const std::function<void(bool isOpen)>& opened);

} // namespace tessel
