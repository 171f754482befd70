// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tessel::json {

/// How deep arrays and objects may be nested.
inline constexpr std::size_t maxDepth = 32;

struct Node;
struct Member;

/// A number that is no 64-bit integer literal: a fraction, an exponent, or too many digits.
struct Number
{
    std::string digits;       ///< as it stood in the text
    double approximate = 0.0; ///< the same rounded to double
};

using Array = std::vector<Node>;
using Object = std::vector<Member>; ///< sorted by key, no key twice

/// One JSON value.
struct Node
{
    std::variant<std::nullptr_t, bool, std::int64_t, Number, std::string, Array, Object> value;
};

struct Member
{
    std::string key;
    Node node;
};

/// Says what the value of a key should be, for a message; empty for a key it does not know.
using Expectation = std::string_view (*)(std::string_view key);

/// Reads one JSON value, strictly: nothing may follow it, no object may hold a key twice, nothing may be
/// nested deeper than `maxDepth`, and no number may be too large for a double.
/// \throws JsonError
[[nodiscard]] Node read(std::string_view text, Expectation expected);

/// The member with this key, or null.
[[nodiscard]] const Node* find(const Object& object, std::string_view key);

/// A value for a message: scalars as JSON cut to about 40 characters, else "an array" or "an object".
[[nodiscard]] std::string describe(const Node& node);

/// Text as a JSON string in ASCII for a message, cut to about 40 characters.
[[nodiscard]] std::string inQuotes(std::string_view text);

/// Text as a complete JSON string; none for text that is not UTF-8.
[[nodiscard]] std::optional<std::string> escaped(std::string_view text);

} // namespace tessel::json
