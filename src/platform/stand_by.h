// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace tessel {

/// Leaves a process behind that waits, without any work, until this one has ended. If that was because the
/// desktop has gone, and it is there again within ten seconds, the process goes on in the place of this one.
/// To be called before there are other threads.
/// \return whether this is that process, so that one call may return in two
[[nodiscard]] bool standBy();

} // namespace tessel
