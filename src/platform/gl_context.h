// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>
#include <stdexcept>

class QOffscreenSurface;
class QOpenGLContext;
class QSurface;

namespace tessel {

/// There is no OpenGL that we can draw with. The message says what is there and what is needed.
class GlContextError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The OpenGL context in which everything is drawn that is not drawn by Qt; it shares its objects with
/// Qt's own.
class GlContext
{
public:
    /// Asks for OpenGL 3.3 core; needs a QGuiApplication.
    /// \throws GlContextError
    GlContext();
    ~GlContext();
    GlContext(const GlContext&) = delete;
    GlContext& operator=(const GlContext&) = delete;

    /// Makes it current with no window, for drawing out of sight.
    void makeCurrent();
    /// Makes it current on a window.
    /// \return false while the window cannot be drawn to
    [[nodiscard]] bool makeCurrent(QSurface& window);
    /// Shows what was drawn on a window, without waiting for the screen.
    void swap(QSurface& window);

    /// Whether the processor does the drawing, with no GPU behind it.
    [[nodiscard]] bool isSoftware() const { return m_isSoftware; }

private:
    std::unique_ptr<QOffscreenSurface> m_nowhere;
    std::unique_ptr<QOpenGLContext> m_context;
    bool m_isSoftware = false;
};

} // namespace tessel
