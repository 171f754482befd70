// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace tessel {

/// Whether the program runs where it sees neither the user's files nor the desktop's programs.
[[nodiscard]] bool isSandboxed();

} // namespace tessel
