// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"
#include "render/graphics.h"
#include "render/still.h"

#include <QGuiApplication>

namespace tessel::cli {

/// What drawing without a display needs, in the order in which one depends on the other: Qt's fonts and
/// picture formats on its offscreen platform, and Graphics without a window.
class Headless
{
public:
    /// \throws ContextError
    Headless();

    [[nodiscard]] FrameEncoder& encoder() { return m_graphics.encoder(); }

    /// Draws a frame.
    /// \throws std::runtime_error for a size that the GPU cannot draw
    [[nodiscard]] Picture draw(const Frame& frame, StillTiming* timing = nullptr);

    /// Says on standard error when the photo of a look that was drawn cannot be shown.
    void warnOfPhoto(const Look& look);

private:
    QGuiApplication m_application;
    Graphics m_graphics;
};

} // namespace tessel::cli
