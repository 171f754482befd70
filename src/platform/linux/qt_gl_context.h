// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/gl_context.h"

#include <QSurfaceFormat>

#include <memory>

class QOffscreenSurface;
class QOpenGLContext;
class QSurface;

namespace tessel {

/// A context of ours in which windows that Qt makes can be drawn into. It shares nothing with Qt's own.
class QtGlContext : public GlContext
{
public:
    /// Needs a QGuiApplication.
    /// \throws ContextError
    QtGlContext();
    ~QtGlContext() override;

    /// What windows must be made with: they do not wait for the screen.
    [[nodiscard]] static QSurfaceFormat format();

    [[nodiscard]] bool makeCurrent() override;
    /// Makes it current on a window.
    /// \return false while the window cannot be drawn to
    [[nodiscard]] bool makeCurrent(QSurface& window);
    /// Shows what was drawn on a window.
    void swap(QSurface& window);

private:
    std::unique_ptr<QOffscreenSurface> m_nowhere;
    std::unique_ptr<QOpenGLContext> m_context;
};

} // namespace tessel
