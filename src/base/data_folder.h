// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace tessel {

/// Where the program keeps what it makes for the user, other than settings. It need not exist yet.
[[nodiscard]] QString dataFolder();

} // namespace tessel
