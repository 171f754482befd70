// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/json_reader.h"
#include "model/look_json.h"
#include "render/png_file.h"

#include <libdeflate.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

namespace {

using namespace tessel;

void read(std::string_view png)
{
    const auto source = [png](std::span<std::uint8_t> bytes) mutable {
        const std::size_t count = png.copy(reinterpret_cast<char*>(bytes.data()), bytes.size());
        png.remove_prefix(count);
        return count;
    };
    try {
        if (const auto text = readLookText(source, "input"))
            static_cast<void>(decodeLook(*text));
    } catch (const FileError&) {
    } catch (const JsonError&) {
    }
}

std::string bigEndian(std::uint32_t number)
{
    return {static_cast<char>(number >> 24U), static_cast<char>(number >> 16U),
            static_cast<char>(number >> 8U), static_cast<char>(number)};
}

/// A chunk with the right check sum, which no fuzzer would find.
std::string chunk(const std::string& type, std::string_view data)
{
    const std::string body = type + std::string(data);
    return bigEndian(static_cast<std::uint32_t>(data.size())) + body +
           bigEndian(libdeflate_crc32(0, body.data(), body.size()));
}

} // namespace

/// The input as a PNG file, and as what follows the keyword in a look's chunk of a sound one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    read(input);
    read("\x89PNG\r\n\x1a\n" + chunk("IHDR", std::string(13, '\0')) +
         chunk("iTXt", std::string(lookKeyword, sizeof lookKeyword) + std::string(input)) +
         chunk("IEND", {}));
    return 0;
}
