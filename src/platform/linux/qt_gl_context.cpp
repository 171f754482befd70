// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/qt_gl_context.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>

#include <string>

namespace tessel {

namespace {

std::string describe(const QOpenGLContext& context)
{
    return "OpenGL " + std::to_string(context.format().majorVersion()) + "." +
           std::to_string(context.format().minorVersion());
}

} // namespace

QSurfaceFormat QtGlContext::format()
{
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setVersion(3, 3);
    format.setProfile(QSurfaceFormat::CoreProfile);
    format.setOption(QSurfaceFormat::ResetNotification);
    // With more than one monitor, one would wait for another.
    format.setSwapInterval(0);
    return format;
}

QtGlContext::QtGlContext()
    : m_nowhere(std::make_unique<QOffscreenSurface>())
    , m_context(std::make_unique<QOpenGLContext>())
{
    m_context->setFormat(format());
    if (!m_context->create())
        throw ContextError("This display offers no OpenGL; version 3.3 is needed, and Mesa's software "
                           "renderer is enough (on Debian: libgl1-mesa-dri)");
    m_nowhere->setFormat(m_context->format());
    m_nowhere->create();
    if (!makeCurrent())
        throw ContextError("OpenGL is there but cannot be drawn with");
    if (m_context->isOpenGLES() || m_context->format().version() < qMakePair(3, 3))
        throw ContextError(describe(*m_context) + " is there, but version 3.3 is needed");
}

QtGlContext::~QtGlContext() = default;

bool QtGlContext::makeCurrent()
{
    return m_context->makeCurrent(m_nowhere.get());
}

bool QtGlContext::makeCurrent(QSurface& window)
{
    return m_context->makeCurrent(&window);
}

void QtGlContext::swap(QSurface& window)
{
    m_context->swapBuffers(&window);
}

} // namespace tessel
