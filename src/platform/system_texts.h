// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace tessel {

/// What is said of the program where the machine is named, in the words of this system.
[[nodiscard]] QString introductionText();

/// What opening at login means, in the words of this system.
[[nodiscard]] QString openAtLoginText();

} // namespace tessel
