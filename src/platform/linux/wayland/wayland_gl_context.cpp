// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/wayland/wayland_gl_context.h"

#include <QCoreApplication>
#include <epoxy/egl.h>

#include <algorithm>
#include <array>
#include <wayland-egl.h>

namespace tessel {

namespace {

struct WaylandGlContextText
{
    Q_DECLARE_TR_FUNCTIONS(WaylandGlContextText)
};

/// A configuration of 8 bits a colour and no transparency. The first one that EGL offers may have 10, which
/// some compositors show at many times the cost.
EGLConfig opaqueConfig(EGLDisplay display)
{
    static constexpr EGLint attributes[] = {EGL_SURFACE_TYPE,
                                            EGL_WINDOW_BIT,
                                            EGL_RENDERABLE_TYPE,
                                            EGL_OPENGL_BIT,
                                            EGL_RED_SIZE,
                                            8,
                                            EGL_GREEN_SIZE,
                                            8,
                                            EGL_BLUE_SIZE,
                                            8,
                                            EGL_NONE};
    std::array<EGLConfig, 64> offered{};
    EGLint count = 0;
    eglChooseConfig(display, attributes, offered.data(), static_cast<EGLint>(offered.size()), &count);
    const auto end = offered.begin() + count;
    const auto has = [display](EGLConfig config, EGLint attribute, EGLint wanted) {
        EGLint value = -1;
        return eglGetConfigAttrib(display, config, attribute, &value) == EGL_TRUE && value == wanted;
    };
    const auto found = std::find_if(offered.begin(), end, [&has](EGLConfig config) {
        return has(config, EGL_RED_SIZE, 8) && has(config, EGL_ALPHA_SIZE, 0);
    });
    return found == end ? nullptr : *found;
}

} // namespace

WaylandGlSurface::WaylandGlSurface(void* display, void* config, wl_surface* surface, QSize pixels)
    : m_display(display)
    , m_window(wl_egl_window_create(surface, pixels.width(), pixels.height()))
    , m_surface(eglCreatePlatformWindowSurfaceEXT(display, config, m_window.get(), nullptr))
{
}

WaylandGlSurface::~WaylandGlSurface()
{
    // One that is drawn on stays until another is.
    if (eglGetCurrentSurface(EGL_DRAW) == m_surface)
        eglMakeCurrent(m_display, EGL_NO_SURFACE, EGL_NO_SURFACE, eglGetCurrentContext());
    if (m_surface != nullptr)
        eglDestroySurface(m_display, m_surface);
}

WaylandGlContext::WaylandGlContext(wl_display* display)
{
    if (!epoxy_has_egl())
        throw ContextError(
            WaylandGlContextText::tr("no OpenGL here: the EGL library is missing (on Debian: libegl1)")
                .toStdString());
    m_display = eglGetPlatformDisplayEXT(EGL_PLATFORM_WAYLAND_EXT, display, nullptr);
    if (m_display == EGL_NO_DISPLAY || eglInitialize(m_display, nullptr, nullptr) != EGL_TRUE ||
        eglBindAPI(EGL_OPENGL_API) != EGL_TRUE)
        throw ContextError(WaylandGlContextText::tr(
                               "This compositor offers no OpenGL; version 3.3 is needed, and Mesa's software "
                               "renderer is enough (on Debian: libgl1-mesa-dri)")
                               .toStdString());
    m_config = opaqueConfig(m_display);
    static constexpr EGLint attributes[] = {EGL_CONTEXT_MAJOR_VERSION_KHR,
                                            3,
                                            EGL_CONTEXT_MINOR_VERSION_KHR,
                                            3,
                                            EGL_CONTEXT_OPENGL_PROFILE_MASK_KHR,
                                            EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT_KHR,
                                            EGL_NONE};
    m_context =
        m_config == nullptr ? nullptr : eglCreateContext(m_display, m_config, EGL_NO_CONTEXT, attributes);
    if (m_context == EGL_NO_CONTEXT)
        throw ContextError(
            WaylandGlContextText::tr("OpenGL is there, but no version 3.3 core profile for windows")
                .toStdString());
    if (!makeCurrent())
        throw ContextError(
            WaylandGlContextText::tr("OpenGL is there but cannot be drawn with").toStdString());
}

WaylandGlContext::~WaylandGlContext()
{
    if (eglGetCurrentContext() == m_context)
        eglMakeCurrent(m_display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    eglDestroyContext(m_display, m_context);
    // The display stays: others of this process may be drawing with it.
}

bool WaylandGlContext::makeCurrent()
{
    return eglMakeCurrent(m_display, EGL_NO_SURFACE, EGL_NO_SURFACE, m_context) == EGL_TRUE;
}

bool WaylandGlContext::makeCurrent(const WaylandGlSurface& surface)
{
    return eglMakeCurrent(m_display, surface.get(), surface.get(), m_context) == EGL_TRUE &&
           eglSwapInterval(m_display, 0) == EGL_TRUE;
}

std::unique_ptr<WaylandGlSurface> WaylandGlContext::makeSurface(wl_surface* surface, QSize pixels)
{
    return std::make_unique<WaylandGlSurface>(m_display, m_config, surface, pixels);
}

void WaylandGlContext::swap(const WaylandGlSurface& surface)
{
    eglSwapBuffers(m_display, surface.get());
}

} // namespace tessel
