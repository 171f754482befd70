// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/frame_encoder.h"

#include "render/blue_noise_tile.h"
#include "render/crash_notes.h"
#include "render/glyph_atlas.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <vector>

namespace tessel {

namespace {

/// The side of the target that frames are prepared on.
constexpr int smallSide = 16;

constexpr TextureFormat rampFormat{GL_RGBA16F, GL_RGBA, GL_HALF_FLOAT};

GlVertexArray makeVertexArray()
{
    GLuint name = 0;
    glGenVertexArrays(1, &name);
    return GlVertexArray(name);
}

GlSampler makeLinearSampler()
{
    GLuint name = 0;
    glGenSamplers(1, &name);
    glSamplerParameteri(name, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glSamplerParameteri(name, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glSamplerParameteri(name, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glSamplerParameteri(name, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    return GlSampler(name);
}

GlTexture makeBlueNoise()
{
    const auto& ranks = blueNoiseRanks();
    std::array<GLubyte, std::tuple_size_v<std::remove_cvref_t<decltype(ranks)>>> texels{};
    std::ranges::transform(ranks, texels.begin(), [](auto rank) { return static_cast<GLubyte>(rank / 16); });
    return makeTexture(maskFormat, blueNoiseSide, blueNoiseSide, texels.data());
}

GlTexture makeGlyphs()
{
    const QImage atlas = drawGlyphAtlas();
    GlTexture texture = makeTexture(maskFormat, atlas.width(), atlas.height(), atlas.constBits());
    if (!texture)
        return texture;
    // Small characters are drawn from small ones, or their strokes would fall between the pixels.
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_LEVEL, 3);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glGenerateMipmap(GL_TEXTURE_2D);
    return texture;
}

ColorRow makeColorRow(TextureFormat format, int length)
{
    ColorRow row;
    row.texture = makeTexture(format, length, 1);
    row.target = makeFramebuffer(row.texture);
    return row;
}

PhotoSize sizeOf(const std::shared_ptr<const Photo>& photo)
{
    return photo != nullptr ? photo->size : PhotoSize();
}

/// The number of each cell, row by row, as a colour.
GlTexture makeNumbers(GridSize grid)
{
    std::vector<std::uint32_t> numbers(cellCount(grid));
    std::iota(numbers.begin(), numbers.end(), 0U);
    return makeTexture(colorFormat, grid.width, grid.height, numbers.data());
}

/// \return whether there is room for the second ink of each cell
bool makeUpper(CellTextures& cells, GridSize size)
{
    if (cells.inkTarget)
        return true;
    cells.upper = makeTexture(colorFormat, size.width, size.height);
    if (cells.upper)
        cells.inkTarget = makeFramebuffer(cells.lower, &cells.upper);
    return static_cast<bool>(cells.inkTarget);
}

/// Tells a program how many cells its textures have.
void setGrid(const Program& program, GridSize grid)
{
    glUseProgram(program.object.name());
    glUniform2f(program.perCell, 1.0F / static_cast<float>(grid.width),
                1.0F / static_cast<float>(grid.height));
}

/// How many tiles are drawn beside each other, and how many rows of them: so that of the last row little is
/// drawn in vain.
GridSize tileRows(std::size_t tiles)
{
    const std::size_t rows = (tiles + TileTones::tilesInARow - 1) / TileTones::tilesInARow;
    return {static_cast<int>((tiles + rows - 1) / rows), static_cast<int>(rows)};
}

/// Into the texture of places that is bound: whole rows, and what is left.
void upload(std::span<const CellTile> tiles, int length)
{
    const int rows = static_cast<int>(tiles.size()) / length;
    const int rest = static_cast<int>(tiles.size()) % length;
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, length, rows, placeFormat.format, placeFormat.type, tiles.data());
    glTexSubImage2D(GL_TEXTURE_2D, 0, 0, rows, rest, 1, placeFormat.format, placeFormat.type,
                    tiles.last(static_cast<std::size_t>(rest)).data());
}

/// From the framebuffer that is bound.
void readTones(GridSize size, std::uint16_t* tones)
{
    glReadBuffer(GL_COLOR_ATTACHMENT0);
    glPixelStorei(GL_PACK_ALIGNMENT, 2);
    glPixelStorei(GL_PACK_ROW_LENGTH, static_cast<GLint>(TileTones::pitch));
    glReadPixels(0, 0, size.width, size.height, toneFormat.format, toneFormat.type, tones);
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);
}

/// The first look of a cross-fade is drawn over whatever was there, the second blended on top of it.
void setBlending(float opacity)
{
    if (opacity >= 1.0F) {
        glDisable(GL_BLEND);
        return;
    }
    glEnable(GL_BLEND);
    glBlendEquation(GL_FUNC_ADD);
    glBlendColor(0.0F, 0.0F, 0.0F, opacity);
    glBlendFuncSeparate(GL_CONSTANT_ALPHA, GL_ONE_MINUS_CONSTANT_ALPHA, GL_ONE, GL_ZERO);
}

} // namespace

CellTextures* CellTextureCache::find(GridSize size, Slot slot)
{
    const Key key{size.width, size.height, slot};
    const auto found = m_entries.find(key);
    if (found != m_entries.end())
        return &found->second;
    CellTextures made;
    made.field = makeTexture(fieldFormat, size.width, size.height);
    made.lower = makeTexture(colorFormat, size.width, size.height);
    if (!made.field || !made.lower)
        return nullptr;
    made.fieldTarget = makeFramebuffer(made.field);
    made.lowerTarget = makeFramebuffer(made.lower);
    if (!made.fieldTarget || !made.lowerTarget)
        return nullptr;
    if (m_entries.size() >= capacity)
        m_entries.clear();
    return &m_entries.emplace(key, std::move(made)).first->second;
}

FrameEncoder::FrameEncoder(int longestScreen)
    : m_photos(longestScreen)
    , m_vertexArray(makeVertexArray())
    , m_linear(makeLinearSampler())
    , m_placeholder(makeTexture(colorFormat, 1, 1))
    , m_blueNoise(makeBlueNoise())
    , m_ramps{makeColorRow(rampFormat, shaders::rampLength), makeColorRow(rampFormat, shaders::rampLength)}
    , m_steps{makeColorRow(colorFormat, shaders::maxLevels), makeColorRow(colorFormat, shaders::maxLevels)}
    , m_small(makeTexture(colorFormat, smallSide, smallSide))
    , m_smallTarget(makeFramebuffer(m_small))
{
}

void FrameEncoder::bind(TextureUnit unit, GLuint texture, GLuint sampler)
{
    const auto index = static_cast<GLuint>(unit);
    glActiveTexture(GL_TEXTURE0 + index);
    glBindTexture(GL_TEXTURE_2D, texture);
    glBindSampler(index, sampler);
}

/// Fills the target. The size is that of the whole picture, of which the target may be a part; the cell's in
/// pixels.
void FrameEncoder::draw(const Pass& pass, const Program& program, const Target& target, GridSize size,
                        float cell)
{
    const bool upward = target.rows == RowOrder::topFirst;
    glBindFramebuffer(GL_FRAMEBUFFER, target.framebuffer);
    glViewport(0, 0, size.width, size.height);
    glUseProgram(program.object.name());
    glUniform1fv(program.frame, frameHeaderLength, frameHeader(pass.block).data());
    glUniform1fv(program.look, lookBlockLength, lookBlock(pass.block, pass.slot).data());
    glUniform1i(program.slot, static_cast<GLint>(pass.slot));
    glUniform3f(program.target, 1.0F / cell,
                static_cast<float>(upward ? target.firstRow : size.height - target.firstRow),
                upward ? 1.0F : -1.0F);
    glDrawArrays(GL_TRIANGLES, 0, 3);
}

/// Returns nullptr where there is no room for the field.
CellTextures* FrameEncoder::drawField(const Pass& pass, GridSize grid)
{
    CellTextures* cells = m_cells.find(grid, pass.slot);
    if (cells == nullptr)
        return nullptr;
    setBlending(1.0F);
    bind(TextureUnit::photo, pass.photo);
    draw(pass, m_programs.field(pass.look.pattern), {cells->fieldTarget.name()}, grid);
    return cells;
}

/// The field and its inks. Returns nullptr where there is no room for them.
CellTextures* FrameEncoder::drawCells(const Pass& pass, GridSize grid)
{
    CellTextures* cells = drawField(pass, grid);
    const bool twoInks = shaders::kind(pass.look.dither) == shaders::DitherKind::screen;
    if (cells == nullptr || (twoInks && !makeUpper(*cells, grid)))
        return nullptr;
    const Program& inks = m_programs.inks(pass.look.dither);
    const GlFramebuffer& target = twoInks ? cells->inkTarget : cells->lowerTarget;
    bind(TextureUnit::field, cells->field.name());
    bind(TextureUnit::blueNoise, m_blueNoise.name());
    setGrid(inks, grid);
    draw(pass, inks, {target.name()}, grid);
    return cells;
}

/// Binds the colours that the look's tones become. They are drawn when the look is another than before.
void FrameEncoder::prepareColors(const Pass& pass)
{
    const bool smooth = pass.look.dither == Dither::smooth;
    const Program& program = smooth ? m_programs.ramp() : m_programs.steps();
    const int length = smooth ? shaders::rampLength : shaders::maxLevels;
    ColorRow& row = (smooth ? m_ramps : m_steps).at(static_cast<std::size_t>(pass.slot));
    LookBlock look{};
    std::ranges::copy(lookBlock(pass.block, pass.slot), look.begin());
    if (row.look != look) {
        setBlending(1.0F);
        draw(pass, program, {row.target.name()}, {length, 1});
        row.look = look;
    }
    bind(smooth ? TextureUnit::ramp : TextureUnit::steps, row.texture.name());
}

/// Draws no more cells than a part of the picture needs, and those around it that it may look at.
void FrameEncoder::restrictTo(const Target& target, GridSize grid, float cell)
{
    if (!target.height)
        return;
    static constexpr int margin = 2;
    const auto rowOf = [cell](int row) { return static_cast<int>(static_cast<float>(row) / cell); };
    const int first = std::max(rowOf(target.firstRow) - margin, 0);
    const int last = rowOf(target.firstRow + *target.height) + margin;
    glEnable(GL_SCISSOR_TEST);
    glScissor(0, first, grid.width, last - first + 1);
}

void FrameEncoder::bindGlyphs(Dither dither)
{
    if (dither == Dither::ascii && !m_glyphs)
        m_glyphs = makeGlyphs();
    bind(TextureUnit::glyphs, m_glyphs ? m_glyphs.name() : m_placeholder.name());
}

void FrameEncoder::drawPicture(const Pass& pass, const Frame& frame, const Target& target)
{
    crash_notes::check(pass.look);
    const float cell = cellSize(pass.block, pass.slot);
    const GridSize size{frame.width, frame.height};
    const bool direct = cell <= 1.0F;
    const Program& program = direct ? m_programs.direct(pass.look.pattern, pass.look.dither)
                                    : m_programs.composite(pass.look.dither);
    const bool smooth = pass.look.dither == Dither::smooth;
    prepareColors(pass);
    bindGlyphs(pass.look.dither);
    if (!direct) {
        const GridSize grid = fieldSize(frame.width, frame.height, cell);
        restrictTo(target, grid, cell);
        const CellTextures* cells = drawCells(pass, grid);
        glDisable(GL_SCISSOR_TEST);
        bind(TextureUnit::lower, cells != nullptr ? cells->lower.name() : m_placeholder.name(),
             smooth ? m_linear.name() : 0);
        bind(TextureUnit::upper,
             cells != nullptr && cells->upper ? cells->upper.name() : m_placeholder.name());
        setGrid(program, grid);
    } else {
        bind(TextureUnit::photo, pass.photo);
        bind(TextureUnit::blueNoise, m_blueNoise.name());
    }
    setBlending(pass.slot == Slot::current ? frame.mix : 1.0F);
    draw(pass, program, target, size, cell);
}

std::shared_ptr<const Photo> FrameEncoder::photoOf(const Look& look)
{
    return look.pattern == Pattern::image ? m_photos.find(look.imagePath) : nullptr;
}

GLuint FrameEncoder::textureOf(const std::shared_ptr<const Photo>& photo) const
{
    return photo != nullptr ? photo->texture.name() : m_placeholder.name();
}

FrameEncoder::State::State(GLuint vertexArray)
{
    glBindVertexArray(vertexArray);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_STENCIL_TEST);
    glDisable(GL_SCISSOR_TEST);
    glDisable(GL_CULL_FACE);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
}

FrameEncoder::State::~State()
{
    setBlending(1.0F);
    glDisable(GL_SCISSOR_TEST);
    glUseProgram(0);
    glBindVertexArray(0);
    for (GLuint unit = 0; unit <= static_cast<GLuint>(TextureUnit::tiles); ++unit)
        glBindSampler(unit, 0);
    glActiveTexture(GL_TEXTURE0);
}

void FrameEncoder::encode(const Frame& frame, const Target& target)
{
    const bool fading = frame.mix < 1.0F;
    crash_notes::setDrawn(frame.current);
    const std::shared_ptr<const Photo> current = photoOf(frame.current);
    const std::shared_ptr<const Photo> previous = fading ? photoOf(frame.previous) : nullptr;
    const UniformBlock block = makeUniforms(frame, sizeOf(previous), sizeOf(current), m_blocks);
    const State state(m_vertexArray.name());
    if (fading) {
        const UniformBlock before = withEdge(block, frame.previousEdge);
        drawPicture({before, Slot::previous, frame.previous, textureOf(previous)}, frame, target);
    }
    drawPicture({block, Slot::current, frame.current, textureOf(current)}, frame, target);
}

template<typename DrawGrid>
auto FrameEncoder::encodeGrid(const Frame& frame, DrawGrid drawGrid)
{
    crash_notes::check(frame.current);
    crash_notes::setDrawn(frame.current);
    const std::shared_ptr<const Photo> photo = photoOf(frame.current);
    const UniformBlock block = makeUniforms(frame, {}, sizeOf(photo), m_blocks);
    const GridSize grid = fieldSize(frame.width, frame.height, cellSize(block, Slot::current));
    const State state(m_vertexArray.name());
    return drawGrid(Pass{block, Slot::current, frame.current, textureOf(photo)}, grid);
}

const CellTextures* FrameEncoder::encodeField(const Frame& frame)
{
    return encodeGrid(frame, [this](const Pass& pass, GridSize grid) { return drawField(pass, grid); });
}

const CellTextures* FrameEncoder::encodeCells(const Frame& frame)
{
    return encodeGrid(frame, [this](const Pass& pass, GridSize grid) {
        prepareColors(pass);
        return drawCells(pass, grid);
    });
}

bool FrameEncoder::makeTileTextures()
{
    if (m_tiles.target)
        return true;
    static constexpr auto side = static_cast<int>(TileTones::tilesInARow);
    static constexpr auto samples = static_cast<int>(TileTones::pitch);
    m_tiles.places = makeTexture(placeFormat, side, side);
    m_tiles.tones = makeTexture(toneFormat, samples, samples);
    if (m_tiles.places && m_tiles.tones)
        m_tiles.target = makeFramebuffer(m_tiles.tones);
    return static_cast<bool>(m_tiles.target);
}

bool FrameEncoder::sampleTiles(const Frame& frame, std::span<const CellTile> tiles, int step,
                               TileTones& tones)
{
    return encodeGrid(frame, [&](const Pass& pass, GridSize /*grid*/) {
        if (!makeTileTextures())
            return false;
        // Samples that tones lie between need one at the far end, too.
        tones.side = CellTile::side / step + (step > 1 ? 1 : 0);
        tones.tones.resize(TileTones::pitch * TileTones::pitch);
        const GridSize rows = tileRows(tiles.size());
        tones.columns = static_cast<std::size_t>(rows.width);
        const GridSize drawn{rows.width * tones.side, rows.height * tones.side};
        const Program& program = m_programs.tiles(pass.look.pattern);
        setBlending(1.0F);
        bind(TextureUnit::photo, pass.photo);
        bind(TextureUnit::tiles, m_tiles.places.name());
        upload(tiles, rows.width);
        glUseProgram(program.object.name());
        glUniform3f(program.sampling, static_cast<float>(tones.side), static_cast<float>(step),
                    static_cast<float>(CellTile::side));
        draw(pass, program, {m_tiles.target.name()}, drawn);
        readTones(drawn, tones.tones.data());
        return true;
    });
}

std::vector<float> FrameEncoder::readRamp(const Frame& frame)
{
    const UniformBlock block = makeUniforms(frame, {}, {}, m_blocks);
    const State state(m_vertexArray.name());
    prepareColors(Pass{block, Slot::current, frame.current, 0});
    std::vector<float> colors(3UL * shaders::rampLength);
    glBindFramebuffer(GL_FRAMEBUFFER, m_ramps.at(static_cast<std::size_t>(Slot::current)).target.name());
    glReadBuffer(GL_COLOR_ATTACHMENT0);
    glReadPixels(0, 0, shaders::rampLength, 1, GL_RGB, GL_FLOAT, colors.data());
    return colors;
}

bool FrameEncoder::encodeMap(const Frame& frame, const Target& target)
{
    const UniformBlock block = makeUniforms(frame, {}, {}, m_blocks);
    const float cell = cellSize(block, Slot::current);
    const GridSize grid = fieldSize(frame.width, frame.height, cell);
    const GlTexture numbers = makeNumbers(grid);
    if (!numbers)
        return false;
    const State state(m_vertexArray.name());
    const Program& program = m_programs.map(frame.current.dither);
    setBlending(1.0F);
    bind(TextureUnit::lower, numbers.name());
    bindGlyphs(frame.current.dither);
    setGrid(program, grid);
    draw(Pass{block, Slot::current, frame.current, 0}, program, target, {frame.width, frame.height}, cell);
    return true;
}

bool FrameEncoder::isPrepared(const Look& look, const Frame& frame) const
{
    crash_notes::check(look);
    if (look.dither == Dither::ascii && !m_glyphs)
        return false;
    if (look.dither == Dither::smooth ? !m_programs.hasRamp() : !m_programs.hasSteps())
        return false;
    if (look.pattern == Pattern::image && look.imagePath && !m_photos.holds(*look.imagePath))
        return false;
    const float cell = cellSize(look, frame.width, frame.height, frame.reference);
    return cell <= 1.0F ? m_programs.hasDirect(look.pattern, look.dither)
                        : m_programs.hasCells(look.pattern, look.dither);
}

bool FrameEncoder::isPrepared(const Frame& frame) const
{
    const bool hasTiles =
        frame.current.dither != Dither::smooth || m_programs.hasTiles(frame.current.pattern);
    return hasTiles && isPrepared(frame.current, frame) &&
           (frame.mix >= 1.0F || isPrepared(frame.previous, frame));
}

void FrameEncoder::prepare(const Frame& frame)
{
    // Only a corner of the picture has room, yet all else is as large as it will be: software renderers
    // compile a shader anew for textures of other sizes.
    const Target target{.framebuffer = m_smallTarget.name(), .height = smallSide};
    encode(frame, target);
    if (shaders::kind(frame.current.dither) == shaders::DitherKind::screen)
        encodeMap(frame, target);
    if (frame.current.dither == Dither::smooth) {
        TileTones tones;
        sampleTiles(frame, std::array{CellTile()}, 1, tones);
    }
    glFinish();
}

} // namespace tessel
