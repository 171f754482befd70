// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/gl_context.h"

namespace tessel {

/// An OpenGL 3.3 core context without any window, current on the thread that made it. It needs no display
/// server: Mesa's surfaceless platform is tried first, then the GPUs that EGL lists, then a plain display.
class HeadlessContext : public GlContext
{
public:
    /// \throws ContextError
    HeadlessContext();
    ~HeadlessContext() override;

    [[nodiscard]] bool makeCurrent() override;

private:
    void* m_display = nullptr;
    void* m_context = nullptr;
};

} // namespace tessel
