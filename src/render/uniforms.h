// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"
#include "render/geometry.h"

#include <array>
#include <cstddef>
#include <numbers>
#include <span>
#include <utility>
#include <vector>

namespace tessel {

inline constexpr std::size_t frameHeaderLength = 14;
inline constexpr std::size_t lookBlockLength = 28;

/// What the shaders know of one look; the layout is documented in docs/rendering.md.
using LookBlock = std::array<float, lookBlockLength>;

/// All that the shaders are told: the frame header, the previous look's block, the current look's block.
using UniformBlock = std::array<float, frameHeaderLength + 2 * lookBlockLength>;

/// Which of the two looks of a frame is meant; the values are the order of the blocks.
enum class Slot : std::uint8_t
{
    previous,
    current
};

/// The pixel size of a photo that is shown; none is 1 x 1 and absent.
struct PhotoSize
{
    float width = 1.0F;
    float height = 1.0F;
    bool present = false;
};

/// Animation phases stay below a thousand turns, so that the GPU's floats keep their precision.
inline constexpr double phaseLimit = 2000 * std::numbers::pi;

/// A finite phase as the animation shows it, 0 to `phaseLimit`.
[[nodiscard]] double wrappedPhase(double phase);

/// One frame to draw: the cross-fade of two looks on a target of `width` x `height` pixels.
struct Frame
{
    const Look& previous;
    const Look& current;
    int width = 0;
    int height = 0;
    float mix = 1.0F;  ///< 0 shows `previous`, 1 shows `current`
    double time = 0.0; ///< animation phase, 0 to `phaseLimit`
    float reference = desktopReference;
    Edge edge = Edge::left;
    Edge previousEdge = Edge::left; ///< that `previous` was drawn for
};

/// The block of one look.
[[nodiscard]] LookBlock makeLookBlock(const Look& look);

/// The blocks of the six looks seen last, first in first out.
class LookBlockCache
{
public:
    LookBlockCache();

    /// The block of `look`, made if it is not among those kept; valid until the next call.
    const LookBlock& block(const Look& look);

private:
    static constexpr std::size_t capacity = 6;
    std::vector<std::pair<Look, LookBlock>> m_entries;
};

/// The whole block of a frame.
[[nodiscard]] UniformBlock makeUniforms(const Frame& frame, PhotoSize previousPhoto, PhotoSize currentPhoto,
                                        LookBlockCache& cache);

/// The frame header and one look's block within the whole block.
[[nodiscard]] std::span<const float, frameHeaderLength> frameHeader(const UniformBlock& block);
[[nodiscard]] std::span<const float, lookBlockLength> lookBlock(const UniformBlock& block, Slot slot);

/// The same block for the handle on another side.
[[nodiscard]] UniformBlock withEdge(UniformBlock block, Edge edge);

/// The cell size of one of the two looks.
[[nodiscard]] float cellSize(const UniformBlock& block, Slot slot);

/// The cell size of the frame's current look.
[[nodiscard]] float cellSize(const Frame& frame);

} // namespace tessel
