// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/qt_gl_context.h"

#include <QCoreApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>

namespace tessel {

namespace {

struct QtGlContextText
{
    Q_DECLARE_TR_FUNCTIONS(QtGlContextText)
};

QString describe(const QOpenGLContext& context)
{
    return QStringLiteral("OpenGL %1.%2")
        .arg(context.format().majorVersion())
        .arg(context.format().minorVersion());
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
        throw ContextError(
            QtGlContextText::tr("This display offers no OpenGL; version 3.3 is needed, and Mesa's software "
                                "renderer is enough (on Debian: libgl1-mesa-dri)")
                .toStdString());
    m_nowhere->setFormat(m_context->format());
    m_nowhere->create();
    if (!makeCurrent())
        throw ContextError(QtGlContextText::tr("OpenGL is there but cannot be drawn with").toStdString());
    if (m_context->isOpenGLES() || m_context->format().version() < qMakePair(3, 3))
        throw ContextError(QtGlContextText::tr("%1 is there, but version 3.3 is needed")
                               .arg(describe(*m_context))
                               .toStdString());
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
