// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/options.h"

#include <charconv>
#include <cmath>
#include <map>
#include <utility>

namespace tessel::cli {

namespace {

/// Reads digits up to `end` of the text into `value`; false if there is anything else.
bool readSide(const char*& from, const char* end, int& value)
{
    const auto [rest, error] = std::from_chars(from, end, value);
    from = rest;
    return error == std::errc() && value > 0;
}

std::string checkFinite(const std::string& text)
{
    double value = 0;
    const bool number = CLI::detail::lexical_cast(text, value);
    return number && std::isfinite(value) ? std::string() : text + " is not a finite number";
}

std::string checkReference(const std::string& text)
{
    float value = 0;
    const bool number = CLI::detail::lexical_cast(text, value);
    return number && std::isfinite(value) && value >= 1.0F ? std::string()
                                                           : text + " is not a number of at least 1";
}

} // namespace

std::string sizeText(PixelSize size)
{
    return std::to_string(size.width) + 'x' + std::to_string(size.height);
}

bool lexical_cast(const std::string& text, PixelSize& size)
{
    const char* at = text.data();
    const char* end = at + text.size();
    const bool width = readSide(at, end, size.width) && at != end && *at++ == 'x';
    if (!width || !readSide(at, end, size.height) || at != end)
        throw CLI::ValidationError(
            "size", text + " is not WIDTHxHEIGHT in pixels, both above zero, such as 1920x1080");
    return true;
}

void addLookArgument(CLI::App& command, std::string& look)
{
    command.add_option(
        "LOOK", look, "JSON text, a JSON file, - for standard input, or a PNG made by tessel [default look]");
}

void addTimeOption(CLI::App& command, double& time)
{
    command.add_option("--time", time, "Animation phase; it comes round after 2000 pi [0]")
        ->check(checkFinite)
        ->type_name("PHASE");
}

void addReferenceOption(CLI::App& command, float& reference)
{
    command
        .add_option("--reference", reference,
                    "Length in points of the long side, on which a pixel is measured [1512]")
        ->check(checkReference)
        ->type_name("POINTS");
}

void addFadeOptions(CLI::App& command, std::string& previous, float& mix)
{
    CLI::Option* from =
        command.add_option("--previous", previous, "The look to fade from")->type_name("LOOK");
    command.add_option("--mix", mix, "How far the fade has come, 0 to 1 [1]")
        ->check(CLI::Range(0.0, 1.0))
        ->needs(from)
        ->type_name("M");
}

void addEdgeOption(CLI::App& command, Edge& edge)
{
    static const std::map<std::string, Edge> names{{"left", Edge::left}, {"right", Edge::right}};
    command.add_option("--edge", edge, "The side the handle is on: left or right [left]")
        ->transform(CLI::CheckedTransformer(names, CLI::ignore_case).description(""))
        ->type_name("EDGE");
}

} // namespace tessel::cli
