// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/gl_context.h"
#include "platform/linux/wayland/wayland_objects.h"

#include <QSize>

namespace tessel {

/// A Wayland surface as OpenGL draws on it, whichever context is used. EGL's types are void pointers.
class WaylandGlSurface
{
public:
    /// \param display EGL's
    /// \param config EGL's
    /// \param surface must outlive this
    WaylandGlSurface(void* display, void* config, wl_surface* surface, QSize pixels);
    WaylandGlSurface(const WaylandGlSurface&) = delete;
    WaylandGlSurface& operator=(const WaylandGlSurface&) = delete;
    ~WaylandGlSurface();

    /// EGL's; nullptr where none is to be had.
    [[nodiscard]] void* get() const { return m_surface; }

private:
    void* const m_display;
    const WaylandPointer<wl_egl_window> m_window;
    void* const m_surface;
};

/// A context of ours in which surfaces of our own connection can be drawn into.
class WaylandGlContext final : public GlContext
{
public:
    /// \param display must outlive this
    /// \throws ContextError
    explicit WaylandGlContext(wl_display* display);
    ~WaylandGlContext() override;

    [[nodiscard]] bool makeCurrent() override;
    /// Makes it current on a surface, for drawing without waiting for the monitor.
    [[nodiscard]] bool makeCurrent(const WaylandGlSurface& surface);
    [[nodiscard]] std::unique_ptr<WaylandGlSurface> makeSurface(wl_surface* surface, QSize pixels);
    /// Shows what was drawn.
    void swap(const WaylandGlSurface& surface);

private:
    void* m_display = nullptr;
    void* m_config = nullptr;
    void* m_context = nullptr;
};

} // namespace tessel
