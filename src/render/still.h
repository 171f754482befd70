// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "render/frame_encoder.h"
#include "render/picture.h"

#include <optional>
#include <span>
#include <vector>

namespace tessel {

/// Milliseconds that the steps of a still have taken. To tell its shaders from its passes it is prepared
/// first.
struct StillTiming
{
    double shaders = 0;
    double passes = 0;
    double readBack = 0;
};

/// A frame that is drawn without any window and read back, in slices, so that whoever draws it can do other
/// things in between.
class StillDrawing
{
public:
    /// \param frame its looks must outlive the drawing
    /// \param sliceRows rows of a slice, from the top; rounded up to whole dither matrices
    StillDrawing(const Frame& frame, int sliceRows);

    /// Draws the next slice.
    /// \return whether there are more to draw; false once all is drawn, and when nothing can be, because the
    /// size is not positive or more than the GPU can draw
    /// \throws DrawingError
    bool advance(FrameEncoder& encoder, StillTiming* timing = nullptr);

    /// The size of the slices to come.
    void setSliceRows(int rows);

    /// How much of it is drawn, 0 to 1.
    [[nodiscard]] double drawn() const;

    /// The picture, once and when all of it is drawn.
    [[nodiscard]] std::optional<Picture> take();

private:
    bool begin();

    Frame m_frame;
    int m_sliceRows = 0;
    int m_targetRows = 0;
    int m_done = 0;
    GlTexture m_texture;
    GlFramebuffer m_framebuffer;
    std::optional<Picture> m_picture;
};

/// Draws one frame without any window and reads it back. None if the size is not positive or more than the
/// GPU can draw at once.
/// \throws DrawingError
[[nodiscard]] std::optional<Picture> renderStill(FrameEncoder& encoder, const Frame& frame,
                                                 StillTiming* timing = nullptr);

/// The tone of every cell of a frame's current look, 0 to 1, first row on top.
struct Field
{
    GridSize size;
    std::vector<float> tones;
};

/// Draws the field of a frame's current look and reads it back. None if the GPU has no room for it.
/// \throws DrawingError
[[nodiscard]] std::optional<Field> renderField(FrameEncoder& encoder, const Frame& frame);

/// The frames that show each look alone, at one size, as renderStill() draws them: one picture or none for
/// each look, in order; none also for one that the driver refuses.
[[nodiscard]] std::vector<std::optional<Picture>> renderStills(FrameEncoder& encoder,
                                                               std::span<const Look> looks, int width,
                                                               int height, double time, Edge edge);

} // namespace tessel
