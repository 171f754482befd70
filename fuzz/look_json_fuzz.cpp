// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/json_reader.h"
#include "model/look_json.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace tessel;

/// Whatever decodes must encode, and the text must decode to the same value and encode to the same text.
/// The text also tells apart the two zeros, which compare equal.
template<typename Decode, typename Encode>
void check(const char* what, std::string_view json, Decode decode, Encode encode)
{
    const auto value = [&]() -> std::optional<decltype(decode(json))> {
        try {
            return decode(json);
        } catch (const JsonError&) {
            return std::nullopt;
        }
    }();
    if (!value)
        return;
    const std::string text = encode(*value);
    const auto again = decode(text);
    if (again != *value || encode(again) != text) {
        std::fprintf(stderr, "%s did not come back from %s\n", what, text.c_str());
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view json(reinterpret_cast<const char*>(data), size);
    check("a look", json, decodeLook, encodeLook);
    check("a list of looks", json, decodeLooks, encodeLooks);
    check("a list of presets", json, decodePresets, encodePresets);
    check("a list of colour lists", json, decodeColorLists, encodeColorLists);
    return 0;
}
