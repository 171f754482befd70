// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_line.h"
#include "cli/headless.h"
#include "cli/running_application.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <vector>

// Commands end here where they would draw, or ask the running program: these stand in for the tool's own.
namespace tessel::cli {

namespace {

[[noreturn]] int& end()
{
    throw std::runtime_error("no further");
}

} // namespace

Headless::Headless() : m_application(end(), nullptr), m_graphics({}) {}

Picture Headless::draw(const Frame& /*frame*/, StillTiming* /*timing*/)
{
    end();
}

void Headless::warnOfPhoto(const Look& /*look*/) {}

RunningApplication::RunningApplication() : m_application(end(), nullptr), m_bus(QString()) {}

void RunningApplication::perform(const QString& /*action*/, const QVariant& /*parameter*/) {}

RunningApplication::Wallpaper RunningApplication::wallpaper()
{
    return {};
}

} // namespace tessel::cli

namespace {

/// Takes text up to a limit, as a pipe does whose reader has gone.
class Paper : public std::streambuf
{
public:
    [[nodiscard]] const std::string& text() const { return m_text; }

protected:
    int_type overflow(int_type character) override
    {
        constexpr std::size_t limit = 100'000;
        if (m_text.size() == limit)
            return traits_type::eof();
        m_text += traits_type::to_char_type(character);
        return character;
    }

private:
    std::string m_text;
};

/// While it lives, a stream writes onto paper.
class Redirection
{
public:
    explicit Redirection(std::ostream& stream) : m_stream(stream), m_before(stream.rdbuf(&m_paper)) {}
    ~Redirection()
    {
        m_stream.rdbuf(m_before);
        m_stream.clear();
    }
    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;

    [[nodiscard]] const std::string& text() const { return m_paper.text(); }

private:
    Paper m_paper;
    std::ostream& m_stream;
    std::streambuf* m_before;
};

/// Standard input and output are nobody's.
void leaveTerminal()
{
    if (std::freopen("/dev/null", "w", stdout) == nullptr)
        std::abort();
    std::cin.setstate(std::ios::eofbit);
}

[[noreturn]] void complain(const std::string& what)
{
    std::fprintf(stderr, "%s\n", what.c_str());
    std::abort();
}

} // namespace

/// The input's lines as arguments. Whatever they are, the tool says what is wrong, or prints numbers.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool isThere = (leaveTerminal(), true);
    static_cast<void>(isThere);
    std::vector<std::string> arguments{"tessel", {}};
    for (std::size_t i = 0; i < size && data[i] != 0; ++i)
        if (data[i] == '\n')
            arguments.emplace_back();
        else
            arguments.back() += static_cast<char>(data[i]);
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());

    const Redirection out(std::cout);
    const Redirection error(std::cerr);
    const int code = tessel::cli::run(static_cast<int>(pointers.size()), pointers.data());
    if (code < 0 || code > 2 || (code != 0 && error.text().empty()))
        complain("It ended with " + std::to_string(code) + " and said: " + error.text());
    if (const std::size_t numbers = out.text().find("\"uniforms\":"); numbers != std::string::npos)
        if (out.text().find("null", numbers) != std::string::npos)
            complain("Numbers that are none: " + out.text());
    return 0;
}
