// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <epoxy/gl.h>

#include <cstdint>
#include <utility>

namespace tessel {

/// Owns one OpenGL object name and frees it with `Free`; the context it was made in must be current then.
template<void (*Free)(GLuint)>
class GlObject
{
public:
    GlObject() = default;
    explicit GlObject(GLuint name) : m_name(name) {}
    GlObject(GlObject&& other) noexcept : m_name(std::exchange(other.m_name, 0)) {}
    GlObject& operator=(GlObject&& other) noexcept
    {
        std::swap(m_name, other.m_name);
        return *this;
    }
    GlObject(const GlObject&) = delete;
    GlObject& operator=(const GlObject&) = delete;
    ~GlObject()
    {
        if (m_name != 0)
            Free(m_name);
    }

    [[nodiscard]] GLuint name() const { return m_name; }
    explicit operator bool() const { return m_name != 0; }

private:
    GLuint m_name = 0;
};

namespace gl_free {
inline void texture(GLuint name)
{
    glDeleteTextures(1, &name);
}
inline void framebuffer(GLuint name)
{
    glDeleteFramebuffers(1, &name);
}
inline void vertexArray(GLuint name)
{
    glDeleteVertexArrays(1, &name);
}
inline void sampler(GLuint name)
{
    glDeleteSamplers(1, &name);
}
inline void program(GLuint name)
{
    glDeleteProgram(name);
}
inline void shader(GLuint name)
{
    glDeleteShader(name);
}
} // namespace gl_free

using GlTexture = GlObject<gl_free::texture>;
using GlFramebuffer = GlObject<gl_free::framebuffer>;
using GlVertexArray = GlObject<gl_free::vertexArray>;
using GlSampler = GlObject<gl_free::sampler>;
using GlProgram = GlObject<gl_free::program>;
using GlShader = GlObject<gl_free::shader>;

/// How the bytes of a texture are stored and uploaded.
struct TextureFormat
{
    GLint internal;
    GLenum format;
    GLenum type;
};
inline constexpr TextureFormat fieldFormat{GL_R16F, GL_RED, GL_HALF_FLOAT};
inline constexpr TextureFormat colorFormat{GL_RGBA8, GL_RGBA, GL_UNSIGNED_BYTE};
inline constexpr TextureFormat toneFormat{GL_R16, GL_RED, GL_UNSIGNED_SHORT};
inline constexpr TextureFormat placeFormat{GL_RG16UI, GL_RG_INTEGER, GL_UNSIGNED_SHORT};
inline constexpr TextureFormat maskFormat{GL_R8, GL_RED, GL_UNSIGNED_BYTE};

/// A 2D texture of one level, clamped at its edges and filled with `data` (rows packed, first row first)
/// where given. An empty object if the driver has no room for it.
[[nodiscard]] GlTexture makeTexture(TextureFormat format, int width, int height, const void* data = nullptr);

/// A framebuffer that draws into these textures; an empty object if the driver cannot draw into them.
[[nodiscard]] GlFramebuffer makeFramebuffer(const GlTexture& first, const GlTexture* second = nullptr);

/// Reads colours back, first row first and without gaps: 0xAARRGGBB, or with GL_RGBA the bytes as they are.
/// Leaves the framebuffer bound.
/// \param attachment which of its textures
void readColors(const GlFramebuffer& framebuffer, int width, int height, std::uint32_t* pixels,
                GLenum attachment = GL_COLOR_ATTACHMENT0, GLenum format = GL_BGRA);

} // namespace tessel
