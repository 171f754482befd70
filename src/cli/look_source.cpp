// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/look_source.h"

#include "model/json_reader.h"
#include "model/look_json.h"
#include "render/png_file.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>

namespace tessel::cli {

namespace {

constexpr std::string_view pngSignature = "\x89PNG\r\n\x1a\n";

std::string readAll(std::istream& stream)
{
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::string readFile(const std::string& name)
{
    const std::filesystem::path path(name);
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored))
        throw std::runtime_error(name + ": there is no such file (a look is JSON text, a JSON file, - for "
                                        "standard input, or a PNG made by tessel)");
    if (std::filesystem::is_directory(path, ignored))
        throw std::runtime_error(name + ": is a folder, not a look");
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error(name + ": cannot be opened for reading");
    return readAll(file);
}

bool isJsonText(const std::string& argument)
{
    const std::size_t first = argument.find_first_not_of(" \t\r\n");
    return first != std::string::npos && (argument[first] == '{' || argument[first] == '[');
}

Look decode(const std::string& origin, const std::string& text)
{
    try {
        return decodeLook(text);
    } catch (const JsonError& error) {
        throw std::runtime_error(origin + ": " + error.what());
    }
}

Look decodeFromPng(const std::string& origin, const std::optional<std::string>& text)
{
    if (!text)
        throw std::runtime_error(origin + ": holds no look; only a PNG made by tessel does");
    return decode(origin, *text);
}

/// Whatever was read, JSON or a PNG.
Look decodeEither(const std::string& origin, const std::string& content)
{
    return content.starts_with(pngSignature) ? decodeFromPng(origin, lookTextIn(content, origin))
                                             : decode(origin, content);
}

} // namespace

Look readLook(const std::string& argument)
{
    if (argument.empty())
        return {};
    if (isJsonText(argument))
        return decode("LOOK", argument);
    if (argument == "-")
        return decodeEither("standard input", readAll(std::cin));
    return decodeEither(argument, readFile(argument));
}

Look readPngLook(const std::string& fileName)
{
    return decodeFromPng(fileName, readLookText(fileName));
}

} // namespace tessel::cli
