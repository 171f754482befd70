// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/store.h"

#include <QDateTime>
#include <QString>

#include <optional>
#include <set>

namespace tessel {

/// "Tessel Broth/Photos" below the user's data home.
[[nodiscard]] QString defaultPhotoFolder();

/// Copies a photo into a folder, which is made if it is missing, under a new name that keeps the suffix. The
/// copy appears whole or not at all. May be called from any thread.
/// \return the path of the copy
/// \throws FileError for a file that is no picture, and where it cannot be copied
[[nodiscard]] QString copyPhoto(const QString& file, const QString& folder);

/// The file names, without folders, of the photos of every look that the store holds or can bring back; none
/// if some of its settings could not be read, so that it cannot be known.
[[nodiscard]] std::optional<std::set<QString>> photosInUse(const Store& store);

/// Removes copies that were made before a date and whose names are not in use. Other files stay.
void removePhotos(const QString& folder, const std::set<QString>& inUse, const QDateTime& madeBefore);

} // namespace tessel
