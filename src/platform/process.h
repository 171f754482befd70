// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace tessel {

/// Lets the calling thread work only when nobody who is waited for has something to do.
void lowerThreadPriority();

/// Gives memory back to the system that was freed but is kept for later.
void releaseUnusedMemory();

} // namespace tessel
