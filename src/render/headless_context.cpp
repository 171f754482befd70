// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/headless_context.h"

#include <epoxy/egl.h>

#include <array>
#include <cstring>
#include <string>
#include <vector>

namespace tessel {

namespace {

struct Candidate
{
    std::string name;
    EGLDisplay display;
};

bool listed(const char* extensions, const char* name)
{
    return extensions != nullptr && std::strstr(extensions, name) != nullptr;
}

/// The displays worth trying, best first.
std::vector<Candidate> candidates()
{
    const char* extensions = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
    std::vector<Candidate> found;
    if (listed(extensions, "EGL_MESA_platform_surfaceless"))
        found.push_back({"Mesa surfaceless", eglGetPlatformDisplayEXT(EGL_PLATFORM_SURFACELESS_MESA,
                                                                      EGL_DEFAULT_DISPLAY, nullptr)});
    if (listed(extensions, "EGL_EXT_platform_device") && listed(extensions, "EGL_EXT_device_enumeration")) {
        std::array<EGLDeviceEXT, 16> devices{};
        EGLint count = 0;
        eglQueryDevicesEXT(static_cast<EGLint>(devices.size()), devices.data(), &count);
        for (EGLint i = 0; i < count; ++i)
            found.push_back({"EGL device " + std::to_string(i),
                             eglGetPlatformDisplayEXT(EGL_PLATFORM_DEVICE_EXT,
                                                      devices.at(static_cast<std::size_t>(i)), nullptr)});
    }
    found.push_back({"default display", eglGetDisplay(EGL_DEFAULT_DISPLAY)});
    return found;
}

/// A current context on an initialised display; none, and a word why in `reason`, if it cannot be had.
EGLContext makeCurrentContext(EGLDisplay display, std::string& reason)
{
    static constexpr EGLint attributes[] = {EGL_CONTEXT_MAJOR_VERSION_KHR,
                                            3,
                                            EGL_CONTEXT_MINOR_VERSION_KHR,
                                            3,
                                            EGL_CONTEXT_OPENGL_PROFILE_MASK_KHR,
                                            EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT_KHR,
                                            EGL_NONE};
    const char* extensions = eglQueryString(display, EGL_EXTENSIONS);
    if (!listed(extensions, "EGL_KHR_surfaceless_context") ||
        !listed(extensions, "EGL_KHR_no_config_context")) {
        reason = "cannot draw without a window";
        return EGL_NO_CONTEXT;
    }
    if (eglBindAPI(EGL_OPENGL_API) != EGL_TRUE) {
        reason = "has no desktop OpenGL";
        return EGL_NO_CONTEXT;
    }
    EGLContext context = eglCreateContext(display, EGL_NO_CONFIG_KHR, EGL_NO_CONTEXT, attributes);
    if (context == EGL_NO_CONTEXT) {
        reason = "has no OpenGL 3.3 core profile";
        return EGL_NO_CONTEXT;
    }
    if (eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, context) != EGL_TRUE) {
        reason = "its context cannot be made current";
        eglDestroyContext(display, context);
        return EGL_NO_CONTEXT;
    }
    return context;
}

} // namespace

HeadlessContext::HeadlessContext()
{
    if (!epoxy_has_egl())
        throw ContextError("no OpenGL here: the EGL library is missing (on Debian: libegl1)");
    std::string tried;
    for (const Candidate& candidate : candidates()) {
        std::string reason = "does not start";
        if (candidate.display != EGL_NO_DISPLAY &&
            eglInitialize(candidate.display, nullptr, nullptr) == EGL_TRUE) {
            m_context = makeCurrentContext(candidate.display, reason);
            if (m_context != EGL_NO_CONTEXT) {
                m_display = candidate.display;
                return;
            }
            eglTerminate(candidate.display);
        }
        tried += (tried.empty() ? "" : "; ") + candidate.name + " " + reason;
    }
    throw ContextError("no OpenGL 3.3 here, neither a GPU's nor the software renderer's "
                       "(on Debian: libgl1-mesa-dri). Tried: " +
                       tried);
}

bool HeadlessContext::makeCurrent()
{
    return eglMakeCurrent(m_display, EGL_NO_SURFACE, EGL_NO_SURFACE, m_context) == EGL_TRUE;
}

HeadlessContext::~HeadlessContext()
{
    if (eglGetCurrentContext() == m_context)
        eglMakeCurrent(m_display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    eglDestroyContext(m_display, m_context);
    // The display stays: it is the whole process's, and others may be drawing with it on other threads.
}

} // namespace tessel
