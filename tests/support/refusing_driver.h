// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <epoxy/gl.h>

#include <string_view>
#include <utility>

namespace tessel {

/// As long as it lives, the driver refuses every shader whose source holds a text: the name of a function or
/// the comment of one pattern, say. There may be one at a time.
class RefusingDriver
{
public:
    explicit RefusingDriver(std::string_view text)
    {
        // The loader looks a function up when it is first called; only then does it hold what it calls.
        const GLuint shader = glCreateShader(GL_VERTEX_SHADER);
        const char* nothing = "";
        glShaderSource(shader, 1, &nothing, nullptr);
        glDeleteShader(shader);
        refused = text;
        attempts = 0;
        other = std::exchange(epoxy_glShaderSource, spoil);
    }
    ~RefusingDriver() { epoxy_glShaderSource = other; }
    RefusingDriver(const RefusingDriver&) = delete;
    RefusingDriver& operator=(const RefusingDriver&) = delete;

    /// How many shaders it has refused.
    [[nodiscard]] static int refusals() { return attempts; }

private:
    static void spoil(GLuint shader, GLsizei count, const GLchar* const* texts, const GLint* lengths)
    {
        if (std::string_view(*texts).find(refused) == std::string_view::npos)
            return other(shader, count, texts, lengths);
        ++attempts;
        const char* nonsense = "#version 330 core\nthis is refused\n";
        other(shader, 1, &nonsense, nullptr);
    }

    static inline std::string_view refused;
    static inline int attempts = 0;
    static inline PFNGLSHADERSOURCEPROC other = nullptr;
};

} // namespace tessel
