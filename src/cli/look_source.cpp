// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/look_source.h"

#include "model/json_reader.h"
#include "model/look_json.h"
#include "render/png_file.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>

namespace tessel::cli {

namespace {

constexpr std::string_view pngSignature = "\x89PNG\r\n\x1a\n";

/// As many bytes as there are, but no more than `count`.
std::string take(std::istream& stream, std::size_t count)
{
    std::string bytes(count, '\0');
    stream.read(bytes.data(), static_cast<std::streamsize>(count));
    bytes.resize(static_cast<std::size_t>(stream.gcount()));
    return bytes;
}

std::ifstream open(const std::string& name)
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
    return file;
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

/// Bytes that have been read already, and then those that come.
ByteSource continued(std::string begun, std::istream& stream)
{
    return [begun = std::move(begun), &stream](std::span<std::uint8_t> bytes) mutable {
        const std::size_t count = begun.copy(reinterpret_cast<char*>(bytes.data()), bytes.size());
        begun.erase(0, count);
        const std::string more = take(stream, bytes.size() - count);
        std::ranges::copy(more, bytes.begin() + static_cast<std::ptrdiff_t>(count));
        return count + more.size();
    };
}

/// Whatever comes, JSON or a PNG. Of a stream that never ends no more is read than a look can be long.
Look decodeEither(const std::string& origin, std::istream& stream)
{
    std::string text = take(stream, pngSignature.size());
    if (text == pngSignature)
        return decodeFromPng(origin, readLookText(continued(std::move(text), stream), origin));
    text += take(stream, maxLookText);
    if (text.size() > maxLookText)
        throw std::runtime_error(origin + ": is too long to be a look");
    return decode(origin, text);
}

} // namespace

Look readLook(const std::string& argument)
{
    if (argument.empty())
        return {};
    if (isJsonText(argument))
        return decode("LOOK", argument);
    if (argument == "-")
        return decodeEither("standard input", std::cin);
    std::ifstream file = open(argument);
    return decodeEither(argument, file);
}

Look readPngLook(const std::string& fileName)
{
    return decodeFromPng(fileName, readLookText(fileName));
}

} // namespace tessel::cli
