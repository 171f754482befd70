// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/gl_objects.h"

namespace tessel {

namespace {

/// Textures are made in the middle of a frame too: on a unit that no program reads, so that those that are
/// bound already stay bound.
constexpr GLenum scratchUnit = GL_TEXTURE15;

void forgetErrors()
{
    // A context that was lost reports an error for ever.
    for (int i = 0; i < 16 && glGetError() != GL_NO_ERROR; ++i) {
    }
}

} // namespace

GlTexture makeTexture(TextureFormat format, int width, int height, const void* data)
{
    forgetErrors();
    GLuint name = 0;
    glGenTextures(1, &name);
    GlTexture texture(name);
    glActiveTexture(scratchUnit);
    glBindTexture(GL_TEXTURE_2D, name);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glTexImage2D(GL_TEXTURE_2D, 0, format.internal, width, height, 0, format.format, format.type, data);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_LEVEL, 0);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    return glGetError() == GL_NO_ERROR ? std::move(texture) : GlTexture();
}

GlFramebuffer makeFramebuffer(const GlTexture& first, const GlTexture* second)
{
    static constexpr GLenum attachments[] = {GL_COLOR_ATTACHMENT0, GL_COLOR_ATTACHMENT1};
    GLuint name = 0;
    glGenFramebuffers(1, &name);
    GlFramebuffer framebuffer(name);
    glBindFramebuffer(GL_FRAMEBUFFER, name);
    glFramebufferTexture2D(GL_FRAMEBUFFER, attachments[0], GL_TEXTURE_2D, first.name(), 0);
    if (second != nullptr)
        glFramebufferTexture2D(GL_FRAMEBUFFER, attachments[1], GL_TEXTURE_2D, second->name(), 0);
    glDrawBuffers(second != nullptr ? 2 : 1, attachments);
    const bool complete = glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
    return complete ? std::move(framebuffer) : GlFramebuffer();
}

void readColors(const GlFramebuffer& framebuffer, int width, int height, std::uint32_t* pixels,
                GLenum attachment, GLenum format)
{
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer.name());
    glReadBuffer(attachment);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glReadPixels(0, 0, width, height, format, GL_UNSIGNED_INT_8_8_8_8_REV, pixels);
}

} // namespace tessel
