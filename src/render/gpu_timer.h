// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "render/gl_objects.h"

#include <optional>

namespace tessel {

namespace gl_free {
inline void query(GLuint name)
{
    glDeleteQueries(1, &name);
}
} // namespace gl_free

/// Measures how long a GPU works on a frame, without waiting for it. Software renderers do their work at
/// other times than they say: there the clock on the wall is right.
class GpuTimer
{
public:
    void begin();
    void end();

    /// The milliseconds between begin() and end(), once, as soon as the GPU has got that far.
    [[nodiscard]] std::optional<double> take();

private:
    GlObject<gl_free::query> m_query;
    bool m_pending = false;
};

} // namespace tessel
