// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/graphics.h"

#include "render/crash_notes.h"
#include "render/still.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tessel {

namespace {

std::string_view driverText(GLenum name)
{
    const auto* text = reinterpret_cast<const char*>(glGetString(name));
    return text != nullptr ? text : "";
}

Rasterizer rasterizerOf(std::string_view renderer)
{
    static constexpr std::array<std::string_view, 4> software{"llvmpipe", "softpipe", "swrast",
                                                              "SwiftShader"};
    return std::ranges::any_of(software, [&](auto each) { return renderer.find(each) != renderer.npos; })
               ? Rasterizer::software
               : Rasterizer::gpu;
}

} // namespace

Graphics::Graphics(MakeContext makeContext)
    : m_makeContext(std::move(makeContext))
    , m_context(m_makeContext())
{
    begin();
}

Graphics::~Graphics()
{
    // What the encoder holds is released in its context, if that is still there.
    static_cast<void>(m_context->makeCurrent());
}

/// Sets up what draws in a new context.
void Graphics::begin()
{
    if (!m_context->makeCurrent())
        throw ContextError(tr("OpenGL is there but cannot be drawn with").toStdString());
    const std::string_view renderer = driverText(GL_RENDERER);
    crash_notes::setDriver(renderer, driverText(GL_VERSION));
    m_encoder = std::make_unique<FrameEncoder>(m_longestScreen);
    m_rasterizer = rasterizerOf(renderer);
}

void Graphics::makeCurrent()
{
    if (!m_context->makeCurrent())
        renew();
    m_encoder->photos().setLongestScreen(m_longestScreen);
}

void Graphics::renew()
{
    // The new one is current while the old one's objects are released: there it has none of these names, and
    // to release what does not exist is allowed.
    const std::unique_ptr<GlContext> lost = std::exchange(m_context, m_makeContext());
    if (!m_context->makeCurrent())
        throw ContextError(tr("The graphics card was reset and cannot be drawn with again").toStdString());
    m_encoder.reset();
    Q_EMIT renewed();
    begin();
}

void Graphics::rest()
{
    try {
        renew();
    } catch (const ContextError&) {
        // Nobody draws now, and makeCurrent() tries it again.
    }
}

std::optional<Picture> Graphics::draw(const Frame& frame)
{
    makeCurrent();
    return renderStill(*m_encoder, frame);
}

} // namespace tessel
