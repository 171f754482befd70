// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "render/drawing_error.h"
#include "render/gl_objects.h"
#include "shaders/shaders.h"

#include <compare>
#include <deque>
#include <map>
#include <string>

namespace tessel {

/// The texture units of the samplers, the same in every program.
enum class TextureUnit : GLint
{
    field,
    glyphs,
    lower,
    upper,
    photo,
    blueNoise,
    ramp,
    steps,
    tiles
};

/// A linked program and where its uniforms are; -1 for those it does not use.
struct Program
{
    GlProgram object;
    GLint frame = -1;
    GLint look = -1;
    GLint slot = -1;
    GLint target = -1;
    GLint perCell = -1;
    GLint sampling = -1;
};

/// The specialised programs, each built when it is first asked for. Those of the dithers are few and small,
/// and kept; of those of the patterns the six built last. One that the driver refuses is not tried again: it
/// is a DrawingError each time it is asked for, and each time it is asked whether it is there.
class ProgramLibrary
{
public:
    ProgramLibrary();

    const Program& field(Pattern pattern);
    const Program& tiles(Pattern pattern);
    const Program& inks(Dither dither);
    const Program& ramp();
    const Program& steps();
    const Program& composite(Dither dither);
    const Program& map(Dither dither);
    const Program& direct(Pattern pattern, Dither dither);

    /// Whether the programs are built already: that of direct(), that of tiles(), those of ramp() and
    /// steps(), and the three of a picture made of cells. \throws DrawingError where one of them has been
    /// refused
    [[nodiscard]] bool hasDirect(Pattern pattern, Dither dither) const;
    [[nodiscard]] bool hasTiles(Pattern pattern) const;
    [[nodiscard]] bool hasRamp() const;
    [[nodiscard]] bool hasSteps() const;
    [[nodiscard]] bool hasCells(Pattern pattern, Dither dither) const;

private:
    enum class Kind : std::uint8_t
    {
        field,
        tiles,
        inks,
        ramp,
        steps,
        composite,
        map,
        direct
    };
    struct Key
    {
        Kind kind;
        Pattern pattern;
        Dither dither;
        auto operator<=>(const Key&) const = default;
    };

    static Key fieldKey(Pattern pattern) { return {Kind::field, pattern, {}}; }
    static Key tilesKey(Pattern pattern) { return {Kind::tiles, pattern, {}}; }
    static Key inksKey(Dither dither);
    static Key rampKey() { return {Kind::ramp, {}, {}}; }
    static Key stepsKey() { return {Kind::steps, {}, {}}; }
    static Key compositeKey(Dither dither);
    static Key directKey(Pattern pattern, Dither dither) { return {Kind::direct, pattern, dither}; }

    /// What is said of a program that was refused, and why.
    static std::string refusal(Key key, const char* reason);
    template<typename MakeSource>
    const Program& find(Key key, MakeSource makeSource);
    void rememberPattern(Key key);
    [[nodiscard]] bool has(Key key) const;

    shaders::Dialect m_dialect;
    static constexpr std::size_t patternCapacity = 6; ///< a cross-fade and what is made ready for the next
    std::map<Key, Program> m_programs;
    std::deque<Key> m_patterns; ///< the programs with a pattern, oldest first
    std::map<Key, DrawingError> m_refused;
};

} // namespace tessel
