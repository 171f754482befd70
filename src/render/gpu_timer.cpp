// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/gpu_timer.h"

namespace tessel {

void GpuTimer::begin()
{
    if (!m_query) {
        GLuint name = 0;
        glGenQueries(1, &name);
        m_query = GlObject<gl_free::query>(name);
    }
    glBeginQuery(GL_TIME_ELAPSED, m_query.name());
    m_pending = false;
}

void GpuTimer::end()
{
    glEndQuery(GL_TIME_ELAPSED);
    m_pending = true;
}

std::optional<double> GpuTimer::take()
{
    if (!m_pending)
        return std::nullopt;
    GLuint available = 0;
    glGetQueryObjectuiv(m_query.name(), GL_QUERY_RESULT_AVAILABLE, &available);
    if (available == 0)
        return std::nullopt;
    m_pending = false;
    GLuint64 nanoseconds = 0;
    glGetQueryObjectui64v(m_query.name(), GL_QUERY_RESULT, &nanoseconds);
    return static_cast<double>(nanoseconds) * 1e-6;
}

} // namespace tessel
