// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/desktop_pictures.h"

#include <optional>

namespace tessel {

/// The one picture of all monitors, for desktops that know no other: a single monitor's own file, else the
/// name of a file beside theirs that depends on their files and places.
[[nodiscard]] QString spannedFile(const std::vector<DesktopPicture>& pictures);

/// Makes that file if there is none yet: every monitor's picture in its place, black between them. The newest
/// two of its kind are kept, older ones removed.
/// \return what went wrong, in words for people; empty if nothing did
[[nodiscard]] QString writeSpanned(const std::vector<DesktopPicture>& pictures);

} // namespace tessel
