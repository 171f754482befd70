// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <stdexcept>
#include <string>

namespace tessel {

/// No OpenGL context could be made. The message says what was tried and what is missing.
class ContextError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// An OpenGL 3.3 core context without any window, current on the thread that made it. It needs no display
/// server: Mesa's surfaceless platform is tried first, then the GPUs that EGL lists, then a plain display.
class HeadlessContext
{
public:
    /// \throws ContextError
    HeadlessContext();
    ~HeadlessContext();
    HeadlessContext(const HeadlessContext&) = delete;
    HeadlessContext& operator=(const HeadlessContext&) = delete;

private:
    void* m_display = nullptr;
    void* m_context = nullptr;
};

} // namespace tessel
