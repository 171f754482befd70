// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tessel {

/// JSON that is broken or does not hold what was asked for. The message names the key, what it holds and
/// what would be right.
class JsonError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace tessel

namespace tessel::json {

/// How deep arrays and objects may be nested.
inline constexpr std::size_t maxDepth = 32;

struct Node;
struct Member;

/// A number that is no 64-bit integer literal: a fraction, an exponent, or too many digits.
struct Number
{
    std::string text; ///< as it was written
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

/// Text in the language of the program.
/// \param text in English, marked for translation in the context "Json"
[[nodiscard]] QString translated(const char* text);

/// A message with these parts, in UTF-8, for its %1, %2 and so on.
template<typename... Parts>
[[nodiscard]] std::string say(const char* text, const Parts&... parts)
{
    if constexpr (sizeof...(parts) == 0)
        return translated(text).toStdString();
    else
        return translated(text).arg(QString::fromStdString(parts)...).toStdString();
}

/// Reads one JSON value, strictly: nothing may follow it, and nothing may be nested deeper than `maxDepth`.
/// Of a key that stands twice in an object the last value counts. Numbers may be as large as they like.
/// \throws JsonError
[[nodiscard]] Node read(std::string_view text);

/// The member with this key, or null.
[[nodiscard]] const Node* find(const Object& object, std::string_view key);

/// The value of a whole number, however it is written (3, 3.0 and 30e-1 are the same); none for what is no
/// whole number or does not fit.
[[nodiscard]] std::optional<std::int64_t> integerFrom(const Node& node);

/// The nearest float of a number, rounded once; none for what is no number or too large for one.
[[nodiscard]] std::optional<float> floatFrom(const Node& node);

/// A value for a message: scalars as JSON cut to about 40 characters, else "an array" or "an object".
[[nodiscard]] std::string describe(const Node& node);

/// Text as a JSON string in ASCII for a message, cut to about 40 characters.
[[nodiscard]] std::string inQuotes(std::string_view text);

/// Text as a complete JSON string; none for text that is not UTF-8.
[[nodiscard]] std::optional<std::string> escaped(std::string_view text);

} // namespace tessel::json
