// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace tessel {

/// How long to wait after one frame has been shown until the next is drawn, so that it is shown a whole
/// number of the monitor's pictures later and no more often than wanted. Milliseconds.
[[nodiscard]] int pauseBetweenFrames(int framesPerSecond, double refreshSeconds);

} // namespace tessel
