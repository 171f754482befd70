// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/gl_context.h"
#include "render/frame_encoder.h"
#include "render/picture.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace tessel {

/// All drawing of a process: the one OpenGL context and the encoder that draws in it. Desktop windows are
/// drawn into; everything else, previews, tiles and exports, gets pictures that are read back. For one
/// thread.
class Graphics : public QObject
{
    Q_OBJECT

public:
    using MakeContext = std::function<std::unique_ptr<GlContext>()>;

    /// \param makeContext called now, and again when the context is lost; throws ContextError if there can
    /// be none
    /// \throws ContextError
    explicit Graphics(MakeContext makeContext);
    ~Graphics() override;

    /// Makes the context current with no window. A lost one is made anew.
    /// \throws ContextError if there can be no other
    void makeCurrent();

    /// The context, for windows to be drawn into.
    [[nodiscard]] GlContext& context() { return *m_context; }
    [[nodiscard]] FrameEncoder& encoder() { return *m_encoder; }
    [[nodiscard]] Rasterizer rasterizer() const { return m_rasterizer; }

    /// The longest side of any screen in pixels, by which photos are read from the next makeCurrent() on; 0
    /// where there is none.
    void setLongestScreen(int pixels) { m_longestScreen = pixels; }
    [[nodiscard]] int longestScreen() const { return m_longestScreen; }

    /// Gives back what the driver and the encoder have kept, which without a GPU is most of the program's
    /// memory: the context is made anew, as after a loss. Where there can be no other, whoever draws next is
    /// told.
    void rest();

    /// One frame as a picture; none if its size is not positive or more than can be drawn at once.
    /// \throws ContextError, and what FrameEncoder::encode() throws
    [[nodiscard]] std::optional<Picture> draw(const Frame& frame);

Q_SIGNALS:
    /// The context was lost or given back and there is another one, which is current: all OpenGL objects are
    /// gone, and those who hold some are to release them now.
    void renewed();

private:
    void begin();
    void renew();

    const MakeContext m_makeContext;
    std::unique_ptr<GlContext> m_context;
    std::unique_ptr<FrameEncoder> m_encoder;
    Rasterizer m_rasterizer = Rasterizer::gpu;
    int m_longestScreen = 0;
};

} // namespace tessel
