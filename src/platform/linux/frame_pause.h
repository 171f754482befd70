// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

namespace tessel {

/// How long to wait after one frame has been shown until the next is drawn, so that it is shown a whole
/// number of the monitor's pictures later and no more often than wanted. Milliseconds.
/// \param sinceDrawn milliseconds since that frame was drawn: a compositor that had nothing else to do may
/// say at once
///                   that it is shown
[[nodiscard]] int pauseBetweenFrames(int framesPerSecond, double refreshSeconds, qint64 sinceDrawn);

} // namespace tessel
