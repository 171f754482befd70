// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <stdexcept>

namespace tessel {

/// Whether frames are drawn by a GPU or by the processor, which is spared every pixel that it can be.
enum class Rasterizer : std::uint8_t
{
    gpu,
    software
};

/// There is no OpenGL context that we can draw with. The message says what was tried and what is missing.
class ContextError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// An OpenGL context of version 3.3, core profile.
class GlContext
{
public:
    GlContext() = default;
    GlContext(const GlContext&) = delete;
    GlContext& operator=(const GlContext&) = delete;
    virtual ~GlContext() = default;

    /// Makes it current on this thread with no window, for drawing out of sight.
    /// \return false if it is lost, as after a reset of the GPU
    [[nodiscard]] virtual bool makeCurrent() = 0;
};

} // namespace tessel
