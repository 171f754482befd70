// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/dialogs.h"
#include "base/worker.h"
#include "model/store.h"
#include "platform/login_item.h"

#include <QSize>

#include <functional>
#include <optional>

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

/// Draws a look at a size in pixels into a PNG file, and tells why if that does not work.
using SavePicture = std::function<void(const Look& look, QSize size, const QString& file,
                                       std::function<void(std::optional<QString> failure)> done)>;

/// Asks where to save a look as a PNG file of a size in pixels, and saves it.
void savePng(Dialogs& dialogs, const Look& look, QSize size, const SavePicture& save);

/// The name that is proposed for such a file.
[[nodiscard]] QString pngName(const Look& look, QSize size);

/// Shows a photo in the edited look, from a copy of our own that is made meanwhile.
/// \param file any picture file that can be read
/// \param worker copies it, and must not outlive the store
/// \param folder where the copies are
void usePhoto(Store& store, Dialogs& dialogs, Worker& worker, const QString& file, const QString& folder);

} // namespace tessel
