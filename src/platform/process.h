// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <chrono>

namespace tessel {

/// Lets the calling thread work only when nobody who is waited for has something to do.
void lowerThreadPriority();

/// Ends the program after that time at the latest, as if all were well: whatever its threads still wait for,
/// a disk that does not answer or a photo that takes long.
void endWithin(std::chrono::milliseconds time);

/// Gives memory back to the system that was freed but is kept for later.
void releaseUnusedMemory();

} // namespace tessel
