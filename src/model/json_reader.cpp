// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/json_reader.h"

#include "model/look_json.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <clocale>
#include <utility>

namespace tessel::json {

namespace {

using Library = nlohmann::json;

/// What nlohmann calls a number that is too large for a double.
constexpr int numberOverflow = 406;

/// While it lives, this thread writes numbers with a point. The library asks the locale for the decimal
/// sign, and a program with windows runs under the user's, which may have a comma.
class DecimalPoint
{
public:
    DecimalPoint() : previous(uselocale(plainLocale())) {}
    ~DecimalPoint() { uselocale(previous); }
    DecimalPoint(const DecimalPoint&) = delete;
    DecimalPoint& operator=(const DecimalPoint&) = delete;

private:
    static locale_t plainLocale()
    {
        static const locale_t plain = newlocale(LC_NUMERIC_MASK, "C", nullptr);
        return plain;
    }

    locale_t previous;
};

bool continuesCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The first `limit` bytes or a few less, so that no UTF-8 character is cut in two.
std::string_view cutText(std::string_view text, std::size_t limit)
{
    if (text.size() <= limit)
        return text;
    while (limit > 0 && continuesCharacter(text[limit]))
        --limit;
    return text.substr(0, limit);
}

std::string shortened(std::string_view text)
{
    constexpr std::size_t limit = 40;
    if (text.size() <= limit)
        return std::string(text);
    return std::string(cutText(text, limit - 3)) + "...";
}

/// "line 3, column 14" of a byte; columns count characters.
std::string lineAndColumn(std::string_view text, std::size_t offset)
{
    const std::string_view before = text.substr(0, offset);
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const std::size_t lineStart = before.rfind('\n') + 1; // 0 where there is no line end before
    const auto column = std::count_if(before.begin() + static_cast<std::ptrdiff_t>(lineStart), before.end(),
                                      [](char byte) { return !continuesCharacter(byte); }) +
                        1;
    return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

/// The character that starts at a byte.
std::string_view characterAt(std::string_view text, std::size_t offset)
{
    std::size_t length = 1;
    while (offset + length < text.size() && length < 4 && continuesCharacter(text[offset + length]))
        ++length;
    return text.substr(offset, length);
}

/// Takes the library's events and builds the tree; every rule beyond JSON's grammar is checked here.
class Builder final : public Library::json_sax_t
{
public:
    Builder(std::string_view json, Expectation expectation) : text(json), expected(expectation) {}

    bool null() override { return add({nullptr}); }
    bool boolean(bool value) override { return add({value}); }
    bool number_integer(Library::number_integer_t value) override { return add({value}); }
    bool string(Library::string_t& value) override { return add({std::move(value)}); }

    bool number_unsigned(Library::number_unsigned_t value) override
    {
        if (std::in_range<std::int64_t>(value))
            return add({static_cast<std::int64_t>(value)});
        return add({Number{std::to_string(value), static_cast<double>(value)}});
    }

    bool number_float(Library::number_float_t value, const Library::string_t& digits) override
    {
        return add({Number{digits, value}});
    }

    bool binary(Library::binary_t& /*value*/) override
    {
        return false; // JSON text has no such values
    }

    bool start_object(std::size_t /*count*/) override { return open({Object{}}); }
    bool start_array(std::size_t /*count*/) override { return open({Array{}}); }

    bool key(Library::string_t& name) override
    {
        frames.back().key = std::move(name);
        return true;
    }

    bool end_object() override
    {
        auto& members = std::get<Object>(frames.back().container.value);
        std::ranges::sort(members, {}, &Member::key);
        const auto twice = std::ranges::adjacent_find(members, {}, &Member::key);
        if (twice != members.end()) {
            throw JsonError(placePrefix(frames.size() - 1) + "the key " + inQuotes(twice->key) +
                            " stands twice in one object; each key may stand once");
        }
        return close();
    }

    bool end_array() override { return close(); }

    bool parse_error(std::size_t position, const std::string& token,
                     const nlohmann::detail::exception& error) override
    {
        if (error.id == numberOverflow)
            throwOverflow(token);
        // `position` counts the bytes read, the offending one included, or one more at the end of the text.
        const std::size_t offset = std::min(position - 1, text.size());
        throw JsonError(lineAndColumn(text, offset) + ": " + reason(offset, error.what()));
    }

    Node takeRoot() { return std::move(root); }

private:
    struct Frame
    {
        Node container;
        std::string key; ///< in an object: of the value that is being read
    };

    bool open(Node&& container)
    {
        if (frames.size() == maxDepth) {
            throw JsonError("the JSON is nested more than " + std::to_string(maxDepth) +
                            " deep; looks and lists of them need no more than 4");
        }
        frames.push_back({std::move(container), {}});
        return true;
    }

    bool close()
    {
        Node finished = std::move(frames.back().container);
        frames.pop_back();
        return add(std::move(finished));
    }

    bool add(Node&& node)
    {
        if (frames.empty()) {
            root = std::move(node);
            complete = true;
            return true;
        }
        Frame& frame = frames.back();
        if (auto* items = std::get_if<Array>(&frame.container.value))
            items->push_back(std::move(node));
        else
            std::get<Object>(frame.container.value).push_back({std::move(frame.key), std::move(node)});
        return true;
    }

    /// Names the value being read in the outermost `depth` frames: `entry 3: "look": "custom"[2]`.
    [[nodiscard]] std::string place(std::size_t depth) const
    {
        std::string name;
        for (std::size_t level = 0; level < depth; ++level) {
            const auto* items = std::get_if<Array>(&frames[level].container.value);
            const bool afterEntry = level == 1 && std::holds_alternative<Array>(frames[0].container.value);
            if (items != nullptr && level == 0) {
                name = "entry " + std::to_string(items->size() + 1);
                continue;
            }
            if (level > 0 && (items == nullptr || afterEntry))
                name += ": ";
            name +=
                items != nullptr ? '[' + std::to_string(items->size()) + ']' : inQuotes(frames[level].key);
        }
        return name;
    }

    [[nodiscard]] std::string placePrefix(std::size_t depth) const
    {
        return depth == 0 ? std::string() : place(depth) + ": ";
    }

    [[noreturn]] void throwOverflow(const std::string& digits) const
    {
        std::string_view right;
        for (const Frame& frame : frames)
            if (const std::string_view forKey = expected(frame.key); !forKey.empty())
                right = forKey;
        throw JsonError((frames.empty() ? "the JSON" : place(frames.size())) + " holds " + shortened(digits) +
                        "; " + std::string(right.empty() ? "no number may be that large" : right));
    }

    [[nodiscard]] std::string reason(std::size_t offset, std::string_view message) const
    {
        if (complete)
            return "there is more text after the end of the JSON value";
        if (offset == text.size())
            return "the text ends before the JSON value is complete";
        // What follows this mark quotes the text that was read, which may be long or no UTF-8.
        message = message.substr(0, message.find("; last read: "));
        if (message.ends_with("ill-formed UTF-8 byte"))
            return "the text is not UTF-8 here";
        if (message.ends_with("invalid literal"))
            return inQuotes(characterAt(text, offset)) + " cannot stand here";
        const std::string_view mark = " - ";
        const std::size_t markAt = message.find(mark);
        return std::string(markAt == std::string_view::npos ? message : message.substr(markAt + mark.size()));
    }

    std::string_view text;
    Expectation expected;
    std::vector<Frame> frames;
    Node root;
    bool complete = false;
};

} // namespace

Node read(std::string_view text, Expectation expected)
{
    // To the library a NUL is the end of the text, whatever comes after it.
    if (const std::size_t nul = text.find('\0'); nul != std::string_view::npos)
        throw JsonError(lineAndColumn(text, nul) + ": a NUL character cannot stand in JSON");
    const DecimalPoint decimalPoint;
    Builder builder(text, expected);
    if (!Library::sax_parse(text.begin(), text.end(), &builder))
        throw JsonError("the text is not JSON"); // every cause known to us has thrown already
    return builder.takeRoot();
}

const Node* find(const Object& object, std::string_view key)
{
    const auto member = std::ranges::lower_bound(object, key, {}, &Member::key);
    return member != object.end() && member->key == key ? &member->node : nullptr;
}

std::string describe(const Node& node)
{
    struct Describer
    {
        std::string operator()(std::nullptr_t) const { return "null"; }
        std::string operator()(bool value) const { return value ? "true" : "false"; }
        std::string operator()(std::int64_t value) const { return std::to_string(value); }
        std::string operator()(const Number& number) const { return shortened(number.digits); }
        std::string operator()(const std::string& text) const { return inQuotes(text); }
        std::string operator()(const Array&) const { return "an array"; }
        std::string operator()(const Object&) const { return "an object"; }
    };
    return std::visit(Describer{}, node.value);
}

std::string inQuotes(std::string_view text)
{
    // ASCII alone, so that no control character of any kind reaches a terminal.
    return Library(shortened(text)).dump(-1, ' ', true, Library::error_handler_t::replace);
}

std::optional<std::string> escaped(std::string_view text)
{
    try {
        return Library(text).dump();
    } catch (const Library::type_error&) {
        return std::nullopt;
    }
}

} // namespace tessel::json
