// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/gl_context.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QSurfaceFormat>

#include <algorithm>
#include <array>
#include <string_view>

namespace tessel {

namespace {

QSurfaceFormat wantedFormat()
{
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setVersion(3, 3);
    format.setProfile(QSurfaceFormat::CoreProfile);
    format.setSwapInterval(0);
    return format;
}

std::string describe(const QOpenGLContext& context)
{
    return "OpenGL " + std::to_string(context.format().majorVersion()) + "." +
           std::to_string(context.format().minorVersion());
}

bool isSoftwareName(std::string_view renderer)
{
    static constexpr std::array<std::string_view, 4> names{"llvmpipe", "softpipe", "swrast", "SwiftShader"};
    return std::ranges::any_of(
        names, [&](std::string_view name) { return renderer.find(name) != std::string_view::npos; });
}

} // namespace

GlContext::GlContext()
    : m_nowhere(std::make_unique<QOffscreenSurface>())
    , m_context(std::make_unique<QOpenGLContext>())
{
    m_context->setFormat(wantedFormat());
    m_context->setShareContext(QOpenGLContext::globalShareContext());
    if (!m_context->create())
        throw GlContextError("This display offers no OpenGL; version 3.3 is needed, and Mesa's software "
                             "renderer is enough (on Debian: libgl1-mesa-dri)");
    m_nowhere->setFormat(m_context->format());
    m_nowhere->create();
    if (!m_context->makeCurrent(m_nowhere.get()))
        throw GlContextError("OpenGL is there but cannot be drawn with");
    if (m_context->isOpenGLES() || m_context->format().version() < qMakePair(3, 3))
        throw GlContextError(describe(*m_context) + " is there, but version 3.3 is needed");
    const auto* renderer = m_context->functions()->glGetString(GL_RENDERER);
    m_isSoftware = renderer != nullptr && isSoftwareName(reinterpret_cast<const char*>(renderer));
}

GlContext::~GlContext() = default;

void GlContext::makeCurrent()
{
    if (!m_context->makeCurrent(m_nowhere.get()))
        throw GlContextError("the OpenGL context is lost");
}

bool GlContext::makeCurrent(QSurface& window)
{
    return m_context->makeCurrent(&window);
}

void GlContext::swap(QSurface& window)
{
    m_context->swapBuffers(&window);
}

} // namespace tessel
