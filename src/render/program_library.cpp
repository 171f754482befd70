// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "render/program_library.h"

#include <QCoreApplication>

#include <array>
#include <string>
#include <utility>

namespace tessel {

namespace {

struct ProgramText
{
    Q_DECLARE_TR_FUNCTIONS(ProgramText)
};

/// What the driver says first in its log.
std::string firstLine(const std::array<char, 4096>& log)
{
    const std::string text(log.data());
    const std::string line = text.substr(0, text.find_first_of("\r\n"));
    return line.empty() ? ProgramText::tr("the driver gives no reason").toStdString() : line;
}

/// \throws DrawingError
GlShader compile(GLenum stage, const std::string& source)
{
    GlShader shader(glCreateShader(stage));
    const char* text = source.c_str();
    glShaderSource(shader.name(), 1, &text, nullptr);
    glCompileShader(shader.name());
    GLint ok = GL_FALSE;
    glGetShaderiv(shader.name(), GL_COMPILE_STATUS, &ok);
    if (ok == GL_TRUE)
        return shader;
    std::array<char, 4096> log{};
    glGetShaderInfoLog(shader.name(), static_cast<GLsizei>(log.size()), nullptr, log.data());
    throw DrawingError(firstLine(log));
}

void bindSamplers(GLuint program)
{
    static constexpr std::pair<const char*, TextureUnit> samplers[] = {
        {"uField", TextureUnit::field}, {"uGlyphs", TextureUnit::glyphs},
        {"uLower", TextureUnit::lower}, {"uUpper", TextureUnit::upper},
        {"uPhoto", TextureUnit::photo}, {"uBlueNoise", TextureUnit::blueNoise},
        {"uRamp", TextureUnit::ramp},   {"uSteps", TextureUnit::steps},
        {"uTiles", TextureUnit::tiles},
    };
    glUseProgram(program);
    for (const auto& [name, unit] : samplers)
        glUniform1i(glGetUniformLocation(program, name), static_cast<GLint>(unit));
}

/// \throws DrawingError
Program build(const shaders::Source& source)
{
    Program program;
    program.object = GlProgram(glCreateProgram());
    const GLuint name = program.object.name();
    const GlShader vertex = compile(GL_VERTEX_SHADER, source.vertex);
    const GlShader fragment = compile(GL_FRAGMENT_SHADER, source.fragment);
    glAttachShader(name, vertex.name());
    glAttachShader(name, fragment.name());
    glLinkProgram(name);
    GLint ok = GL_FALSE;
    glGetProgramiv(name, GL_LINK_STATUS, &ok);
    if (ok != GL_TRUE) {
        std::array<char, 4096> log{};
        glGetProgramInfoLog(name, static_cast<GLsizei>(log.size()), nullptr, log.data());
        throw DrawingError(firstLine(log));
    }
    bindSamplers(name);
    program.frame = glGetUniformLocation(name, "uFrame");
    program.look = glGetUniformLocation(name, "uLook");
    program.slot = glGetUniformLocation(name, "uSlot");
    program.target = glGetUniformLocation(name, "uTarget");
    program.perCell = glGetUniformLocation(name, "uPerCell");
    program.sampling = glGetUniformLocation(name, "uSampling");
    return program;
}

} // namespace

ProgramLibrary::ProgramLibrary()
    : m_dialect(epoxy_is_desktop_gl() ? shaders::Dialect::glsl330 : shaders::Dialect::glslEs300)
{
}

std::string ProgramLibrary::refusal(Key key, const char* reason)
{
    const QString because = QString::fromUtf8(reason);
    switch (key.kind) {
    case Kind::field:
    case Kind::tiles:
        //: The last marker is what the graphics driver says.
        return ProgramText::tr("The pattern %1 cannot be drawn: %2")
            .arg(QString::fromUtf8(title(key.pattern)), because)
            .toStdString();
    case Kind::direct:
        return ProgramText::tr("The pattern %1 with the dither %2 cannot be drawn: %3")
            .arg(QString::fromUtf8(title(key.pattern)), QString::fromUtf8(title(key.dither)), because)
            .toStdString();
    case Kind::inks:
    case Kind::composite:
    case Kind::map:
        return ProgramText::tr("The dither %1 cannot be drawn: %2")
            .arg(QString::fromUtf8(title(key.dither)), because)
            .toStdString();
    default:
        return ProgramText::tr("The palette cannot be drawn: %1").arg(because).toStdString();
    }
}

template<typename MakeSource>
const Program& ProgramLibrary::find(Key key, MakeSource makeSource)
{
    if (has(key))
        return m_programs.find(key)->second;
    try {
        Program program = build(makeSource());
        if (key.kind == Kind::field || key.kind == Kind::tiles || key.kind == Kind::direct)
            rememberPattern(key);
        return m_programs.emplace(key, std::move(program)).first->second;
    } catch (const DrawingError& error) {
        throw m_refused.emplace(key, refusal(key, error.what())).first->second;
    }
}

/// A pattern's program holds up to a megabyte of code: forgetting it costs less than keeping all of them.
void ProgramLibrary::rememberPattern(Key key)
{
    if (m_patterns.size() == patternCapacity) {
        m_programs.erase(m_patterns.front());
        m_patterns.pop_front();
    }
    m_patterns.push_back(key);
}

bool ProgramLibrary::has(Key key) const
{
    const auto refused = m_refused.find(key);
    if (refused != m_refused.end())
        throw refused->second;
    return m_programs.contains(key);
}

ProgramLibrary::Key ProgramLibrary::inksKey(Dither dither)
{
    // The screen dithers differ only in how they choose between the inks, but for the characters.
    const bool shared = shaders::kind(dither) == shaders::DitherKind::screen && dither != Dither::ascii;
    return {Kind::inks, {}, shared ? Dither::halftone : dither};
}

ProgramLibrary::Key ProgramLibrary::compositeKey(Dither dither)
{
    const bool shared = shaders::kind(dither) != shaders::DitherKind::screen;
    return {Kind::composite, {}, shared ? Dither::posterize : dither};
}

const Program& ProgramLibrary::field(Pattern pattern)
{
    return find(fieldKey(pattern),
                [&] { return shaders::field(pattern, shaders::FieldPart::whole, m_dialect); });
}

const Program& ProgramLibrary::tiles(Pattern pattern)
{
    return find(tilesKey(pattern),
                [&] { return shaders::field(pattern, shaders::FieldPart::tiles, m_dialect); });
}

const Program& ProgramLibrary::inks(Dither dither)
{
    const Key key = inksKey(dither);
    return find(key, [&] { return shaders::inks(key.dither, m_dialect); });
}

const Program& ProgramLibrary::ramp()
{
    return find(rampKey(), [&] { return shaders::ramp(m_dialect); });
}

const Program& ProgramLibrary::steps()
{
    return find(stepsKey(), [&] { return shaders::steps(m_dialect); });
}

const Program& ProgramLibrary::composite(Dither dither)
{
    const Key key = compositeKey(dither);
    return find(key, [&] { return shaders::composite(key.dither, m_dialect); });
}

const Program& ProgramLibrary::map(Dither dither)
{
    return find({Kind::map, {}, dither}, [&] { return shaders::map(dither, m_dialect); });
}

const Program& ProgramLibrary::direct(Pattern pattern, Dither dither)
{
    return find(directKey(pattern, dither), [&] { return shaders::direct(pattern, dither, m_dialect); });
}

bool ProgramLibrary::hasDirect(Pattern pattern, Dither dither) const
{
    return has(directKey(pattern, dither));
}

bool ProgramLibrary::hasTiles(Pattern pattern) const
{
    return has(tilesKey(pattern));
}

bool ProgramLibrary::hasRamp() const
{
    return has(rampKey());
}

bool ProgramLibrary::hasSteps() const
{
    return has(stepsKey());
}

bool ProgramLibrary::hasCells(Pattern pattern, Dither dither) const
{
    return has(fieldKey(pattern)) && has(inksKey(dither)) && has(compositeKey(dither));
}

} // namespace tessel
