// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "wallpaper/cell_painter.h"
#include "wallpaper/cross_fade.h"
#include "wallpaper/screen_painter.h"
#include "wallpaper/smooth_painter.h"

#include <optional>
#include <variant>

namespace tessel {

/// Paints what changes of frames, each look with the painter of its kind. In a cross-fade the two looks are
/// painted in memory and mixed; the painter of a look goes on with it from the first cross-fade to the last.
class FramePainter
{
public:
    /// Paints a frame, with an OpenGL context current.
    /// \return false if its looks are not all of a kind that can be painted: it has to be drawn
    /// \throws DrawingError
    bool paint(FrameEncoder& encoder, const Frame& frame, PixelCanvas& canvas);

    /// The canvas no longer shows what was painted.
    void invalidate() { m_current.invalidate(); }

private:
    struct Layer
    {
        void invalidate()
        {
            std::visit([](auto& each) { each.invalidate(); }, painter);
        }

        std::optional<Look> look;
        std::variant<CellPainter, ScreenPainter, SmoothPainter> painter;
        bool isApart = false; ///< painted in memory
        MemoryCanvas memory;
    };

    void paintFade(FrameEncoder& encoder, const Frame& previous, const Frame& frame, PixelCanvas& canvas);
    static void paintApart(FrameEncoder& encoder, Layer& layer, const Frame& frame);
    static void paintLayer(FrameEncoder& encoder, Layer& layer, const Frame& frame, PixelCanvas& canvas);
    template<typename Painter>
    static bool paintWith(FrameEncoder& encoder, Layer& layer, const Frame& frame, PixelCanvas& canvas);

    Layer m_previous; ///< the look that is faded from
    Layer m_current;
};

} // namespace tessel
