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

std::string checkFinite(const std::string& text)
{
    double value = 0;
    const bool number = CLI::detail::lexical_cast(text, value);
    return number && std::isfinite(value) ? std::string() : text + " is not a finite number";
}

void addLookArgument(CLI::App& command, std::string& look)
{
    command.add_option(
        "LOOK", look, "JSON text, a JSON file, - for standard input, or a PNG made by tessel [default look]");
}

CLI::Option* addSizeOption(CLI::App& command, PixelSize& size)
{
    return command.add_option("--size", size, "Size in pixels")->type_name("WxH");
}

void addTimeOption(CLI::App& command, double& time)
{
    command
        .add_option_function<double>(
            "--time", [&time](double phase) { time = wrappedPhase(phase); },
            "Animation phase; it comes round after 2000 pi [0]")
        ->check(checkFinite)
        ->type_name("PHASE");
}

void addReferenceOption(CLI::App& command, float& reference, const std::string& standard)
{
    command
        .add_option("--reference", reference,
                    "Length in points of the long side, on which a pixel is measured [" + standard + "]")
        ->check(checkReference)
        ->type_name("POINTS");
}

Frame makeFrame(const FrameOptions& options, const Look& previous, const Look& current)
{
    return {.previous = previous,
            .current = current,
            .width = options.size.width,
            .height = options.size.height,
            .mix = options.mix,
            .time = options.time,
            .reference = options.reference,
            .edge = options.edge};
}

void addFrameOptions(CLI::App& command, FrameOptions& options)
{
    static const std::map<std::string, Edge> edges{{"left", Edge::left}, {"right", Edge::right}};
    addLookArgument(command, options.look);
    addTimeOption(command, options.time);
    addReferenceOption(command, options.reference, "1512");
    CLI::Option* previous =
        command.add_option("--previous", options.previous, "The look to fade from")->type_name("LOOK");
    command.add_option("--mix", options.mix, "How far the fade has come, 0 to 1 [1]")
        ->check(checkFinite)
        ->check(CLI::Range(0.0, 1.0))
        ->needs(previous)
        ->type_name("M");
    command.add_option("--edge", options.edge, "The side the handle is on: left or right [left]")
        ->transform(CLI::CheckedTransformer(edges, CLI::ignore_case).description(""))
        ->type_name("EDGE");
}

} // namespace tessel::cli
