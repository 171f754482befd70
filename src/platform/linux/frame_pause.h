// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QElapsedTimer>
#include <QTimer>

namespace tessel {

/// How long to wait after one frame has been shown until the next is drawn, so that it is shown a whole
/// number of the monitor's pictures later and no more often than wanted. Milliseconds.
/// \param sinceDrawn milliseconds since that frame was drawn, which a compositor with nothing else to do says
/// is shown at once
[[nodiscard]] int pauseBetweenFrames(int framesPerSecond, double refreshSeconds, qint64 sinceDrawn);

/// The pause of a window: when it runs out, the next frame is drawn.
class FramePause : public QTimer
{
public:
    FramePause();

    /// Begins as a frame has been shown.
    void startAfterShown(int framesPerSecond, double refreshSeconds);

private:
    QElapsedTimer m_sinceDrawn;
};

} // namespace tessel
