// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/uniforms.h"

#include "model/palette.h"
#include "render/limits.h"

#include <algorithm>
#include <cmath>

namespace tessel {

namespace {

constexpr std::size_t edgeIndex = 5;
constexpr std::size_t cellSizeIndex = 12;

float edgeEntry(Edge edge)
{
    return edge == Edge::right ? 1.0F : 0.0F;
}

float channel(Color color, unsigned shift)
{
    return static_cast<float>((color >> shift) & 0xFFU) / 255.0F;
}

} // namespace

LookBlock makeLookBlock(const Look& look)
{
    const Stops stops = resolveStops(look);
    LookBlock block{static_cast<float>(look.pattern),
                    static_cast<float>(look.dither),
                    limits::pixel.apply(look.pixel),
                    limits::levels.apply(look.levels),
                    limits::scale.apply(look.scale),
                    limits::warp.apply(look.warp),
                    limits::contrast.apply(look.contrast),
                    drawnOffset(look.offset),
                    limits::grain.apply(look.grain),
                    limits::vignette.apply(look.vignette),
                    look.invert ? 1.0F : 0.0F,
                    look.seed + 0.0F,
                    static_cast<float>(stops.count)};
    auto out = block.begin() + 13;
    for (const Color color : stops.slot) {
        *out++ = channel(color, 16);
        *out++ = channel(color, 8);
        *out++ = channel(color, 0);
    }
    return block;
}

LookBlockCache::LookBlockCache()
{
    m_entries.reserve(capacity);
}

const LookBlock& LookBlockCache::block(const Look& look)
{
    const auto found = std::ranges::find(m_entries, look, &std::pair<Look, LookBlock>::first);
    if (found != m_entries.end())
        return found->second;
    if (m_entries.size() == capacity)
        m_entries.erase(m_entries.begin());
    return m_entries.emplace_back(look, makeLookBlock(look)).second;
}

double wrappedPhase(double phase)
{
    const double rest = std::fmod(phase, phaseLimit);
    return rest < 0 ? rest + phaseLimit : rest;
}

UniformBlock makeUniforms(const Frame& frame, PhotoSize previousPhoto, PhotoSize currentPhoto,
                          LookBlockCache& cache)
{
    UniformBlock block{static_cast<float>(frame.width),
                       static_cast<float>(frame.height),
                       static_cast<float>(frame.time),
                       frame.mix,
                       frame.reference,
                       edgeEntry(frame.edge),
                       currentPhoto.width,
                       currentPhoto.height,
                       currentPhoto.present ? 1.0F : 0.0F,
                       previousPhoto.width,
                       previousPhoto.height,
                       previousPhoto.present ? 1.0F : 0.0F,
                       cellSize(frame.previous, frame.width, frame.height, frame.reference),
                       cellSize(frame)};
    auto out = block.begin() + frameHeaderLength;
    out = std::ranges::copy(cache.block(frame.previous), out).out;
    std::ranges::copy(cache.block(frame.current), out);
    return block;
}

std::span<const float, frameHeaderLength> frameHeader(const UniformBlock& block)
{
    return std::span(block).first<frameHeaderLength>();
}

std::span<const float, lookBlockLength> lookBlock(const UniformBlock& block, Slot slot)
{
    const auto looks = std::span(block).last<2 * lookBlockLength>();
    return slot == Slot::previous ? looks.first<lookBlockLength>() : looks.last<lookBlockLength>();
}

UniformBlock withEdge(UniformBlock block, Edge edge)
{
    block[edgeIndex] = edgeEntry(edge);
    return block;
}

float cellSize(const UniformBlock& block, Slot slot)
{
    return block[cellSizeIndex + static_cast<std::size_t>(slot)];
}

float cellSize(const Frame& frame)
{
    return cellSize(frame.current, frame.width, frame.height, frame.reference);
}

} // namespace tessel
