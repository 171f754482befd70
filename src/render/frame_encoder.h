// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "render/cell_tiles.h"
#include "render/gl_objects.h"
#include "render/photo_cache.h"
#include "render/program_library.h"
#include "render/uniforms.h"

#include <array>
#include <map>
#include <optional>
#include <span>
#include <vector>

namespace tessel {

/// Which row of a target is its first: windows of OpenGL begin at the bottom, textures that are read back
/// as pictures at the top.
enum class RowOrder : std::uint8_t
{
    topFirst,
    bottomFirst
};

/// What a frame is drawn into.
struct Target
{
    GLuint framebuffer = 0;
    RowOrder rows = RowOrder::topFirst;
    int firstRow = 0;               ///< the frame's row that is the target's first
    std::optional<int> height = {}; ///< rows of the target, where it holds only a part of the frame
};

/// The textures one look is worked out in before it is enlarged to the target.
struct CellTextures
{
    GlTexture field;
    GlTexture lower;
    GlTexture upper; ///< there only once a dither has needed it
    GlFramebuffer fieldTarget;
    GlFramebuffer lowerTarget;
    GlFramebuffer inkTarget; ///< lower and upper together
};

/// The cell textures by size and slot; emptied whole when the 13th is asked for.
class CellTextureCache
{
public:
    /// The textures for a grid of this size and slot; nullptr if the driver has no room for them.
    CellTextures* find(GridSize size, Slot slot);

private:
    struct Key
    {
        int width;
        int height;
        Slot slot;
        auto operator<=>(const Key&) const = default;
    };
    static constexpr std::size_t capacity = 12;
    std::map<Key, CellTextures> m_entries;
};

/// A row of colours of one look, and the look that it was drawn for.
struct ColorRow
{
    GlTexture texture;
    GlFramebuffer target;
    std::optional<LookBlock> look;
};

/// What tiles are sampled with.
struct TileTextures
{
    GlTexture places;
    GlTexture tones;
    GlFramebuffer target;
};

/// Draws frames, at first use with the programs and caches it needs, then without allocating anything as long
/// as the looks and sizes stay. An encoder belongs to one context, which must be current whenever it is made,
/// used or destroyed: contexts do not share vertex arrays and framebuffers, not even those of one share
/// group.
///
/// A look whose program the driver refuses is a DrawingError, whatever is asked about it; others can still be
/// drawn.
class FrameEncoder
{
public:
    explicit FrameEncoder(int longestScreen = 0);

    /// Draws one frame into the target, over whatever was there, and leaves the context with no program,
    /// vertex array or blending.
    /// \throws DrawingError, the target then holding anything
    void encode(const Frame& frame, const Target& target);

    /// Draws only the field of the frame's current look, its sliders applied: one half float for each cell,
    /// first row on top. Returns where it is, nullptr if there is no room for it; valid until the next call.
    /// \throws DrawingError
    const CellTextures* encodeField(const Frame& frame);

    /// Draws only the cells of the frame's current look, whose dither must not be smooth: their colours are
    /// in the lower texture; of a screen its two inks in lower and upper, and in alpha the share of the upper
    /// one. Otherwise as encodeField() says.
    const CellTextures* encodeCells(const Frame& frame);

    /// Works out the plain tones of some tiles of the field of the frame's current look: before grain and the
    /// shift along the ramp.
    /// \param tiles no more than TileTones::capacity
    /// \param step cells from one sample to the next: 1, or 2 or 4, and then the samples reach to the first
    ///        of the next tile
    /// \return false if there is no room for it
    /// \throws DrawingError
    bool sampleTiles(const Frame& frame, std::span<const CellTile> tiles, int step, TileTones& tones);

    /// The ramp of the frame's current look, a smooth one: shaders::rampLength colours from its first stop to
    /// its last, as red, green and blue from 0 to 1.
    /// \throws DrawingError
    std::vector<float> readRamp(const Frame& frame);

    /// Draws the map of the frame's current look, whose dither must be a screen, instead of its picture. Of
    /// each pixel it has the number of its cell, row by row, in the lower three bytes of RGBA, and in the
    /// fourth the largest share of the cell's upper ink, in 255ths, with which it still shows the lower one;
    /// of characters a bit for each that shows the upper ink there.
    /// \return false if there is no room for it
    /// \throws DrawingError
    bool encodeMap(const Frame& frame, const Target& target);

    /// Whether everything that the frame needs is there, so that encode() has nothing to build or load.
    /// \throws DrawingError where it comes upon something that was refused before
    [[nodiscard]] bool isPrepared(const Frame& frame) const;

    /// Draws a corner of the frame out of sight, so that whatever has to be built or loaded for it is there
    /// when it is drawn for real: drivers compile a shader as late as at its first use. Waits until that is
    /// done.
    /// \throws DrawingError
    void prepare(const Frame& frame);

    [[nodiscard]] const PhotoCache& photos() const { return m_photos; }
    [[nodiscard]] PhotoCache& photos() { return m_photos; }

private:
    /// The state of the context while something is drawn; afterwards it has no program, vertex array or
    /// blending, also where drawing has failed.
    class State
    {
    public:
        explicit State(GLuint vertexArray);
        ~State();
        State(const State&) = delete;
        State& operator=(const State&) = delete;
    };

    struct Pass
    {
        const UniformBlock& block;
        Slot slot;
        const Look& look;
        GLuint photo;
    };

    [[nodiscard]] std::shared_ptr<const Photo> photoOf(const Look& look);
    [[nodiscard]] GLuint textureOf(const std::shared_ptr<const Photo>& photo) const;
    [[nodiscard]] bool isPrepared(const Look& look, const Frame& frame) const;
    template<typename DrawGrid>
    [[nodiscard]] auto encodeGrid(const Frame& frame, DrawGrid drawGrid);
    CellTextures* drawField(const Pass& pass, GridSize grid);
    void draw(const Pass& pass, const Program& program, const Target& target, GridSize size,
              float cell = 1.0F);
    CellTextures* drawCells(const Pass& pass, GridSize grid);
    void prepareColors(const Pass& pass);
    void bindGlyphs(Dither dither);
    bool makeTileTextures();
    void drawPicture(const Pass& pass, const Frame& frame, const Target& target);
    static void restrictTo(const Target& target, GridSize grid, float cell);
    void bind(TextureUnit unit, GLuint texture, GLuint sampler = 0);

    ProgramLibrary m_programs;
    CellTextureCache m_cells;
    LookBlockCache m_blocks;
    PhotoCache m_photos;
    GlVertexArray m_vertexArray;
    GlSampler m_linear;
    GlTexture m_placeholder;
    GlTexture m_blueNoise;
    GlTexture m_glyphs;
    std::array<ColorRow, 2> m_ramps; ///< by slot, as are the steps
    std::array<ColorRow, 2> m_steps;
    TileTextures m_tiles; ///< there only once a smooth look has needed them
    GlTexture m_small;
    GlFramebuffer m_smallTarget;
};

} // namespace tessel
