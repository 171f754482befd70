// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"

#include <string>
#include <string_view>
#include <vector>

namespace tessel {

/// A look as a JSON object on one line: keys in declaration order, absent optionals left out, floats in the
/// shortest form that reads back to the same 32-bit value; lists as an array of such objects, and so on.
/// \throws JsonError for what JSON cannot hold or decoding would refuse, so that nothing is written that
/// would be lost when read: infinity and NaN, text that is not UTF-8, a NUL character in a path, a preset id
/// that is no UUID.
[[nodiscard]] std::string encodeLook(const Look& look);
[[nodiscard]] std::string encodeLooks(const std::vector<Look>& looks);
[[nodiscard]] std::string encodePresets(const std::vector<Preset>& presets);
[[nodiscard]] std::string encodeColorLists(const std::vector<std::vector<Color>>& lists);

/// The reverse. A missing or null key of a look takes its default, a negative palette becomes 0, the speed
/// is raised to 0.01, unknown keys are passed over whatever they hold. A whole number may be written with a
/// fraction of zeros or an exponent; of a key that stands twice the last one counts. All four keys of a
/// preset are required. \throws JsonError also for text after the end, more than 32 levels of nesting and
/// numbers too large for their field. Messages count the entries of a list from 1 ("entry 3: ...") and, as in
/// JSON paths, the elements of a colour list from 0 ("custom"[2]).
[[nodiscard]] Look decodeLook(std::string_view json);
[[nodiscard]] std::vector<Look> decodeLooks(std::string_view json);
[[nodiscard]] std::vector<Preset> decodePresets(std::string_view json);
[[nodiscard]] std::vector<std::vector<Color>> decodeColorLists(std::string_view json);

} // namespace tessel
