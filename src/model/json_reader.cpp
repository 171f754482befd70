// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/json_reader.h"

#include <QCoreApplication>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <clocale>
#include <limits>
#include <map>
#include <utility>

namespace tessel::json {

namespace {

using Library = nlohmann::json;

/// While it lives, this thread writes numbers with a point. The library asks the locale for the decimal
/// sign, and a program with windows runs under the user's, which may have a comma.
class DecimalPoint
{
public:
    DecimalPoint() : m_previous(uselocale(plainLocale())) {}
    ~DecimalPoint() { uselocale(m_previous); }
    DecimalPoint(const DecimalPoint&) = delete;
    DecimalPoint& operator=(const DecimalPoint&) = delete;

private:
    static locale_t plainLocale()
    {
        static const locale_t plain = newlocale(LC_NUMERIC_MASK, "C", nullptr);
        return plain;
    }

    locale_t m_previous;
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
    return say(QT_TRANSLATE_NOOP("Json", "line %1, column %2"), std::to_string(line), std::to_string(column));
}

/// The character that starts at a byte.
std::string_view characterAt(std::string_view text, std::size_t offset)
{
    std::size_t length = 1;
    while (offset + length < text.size() && length < 4 && continuesCharacter(text[offset + length]))
        ++length;
    return text.substr(offset, length);
}

/// A number as 0.ddd times a power of ten.
struct Decimal
{
    bool isNegative = false;
    std::string digits; ///< no zeros at either end; empty for zero
    std::int64_t exponent = 0;

    /// Whether it is nearer to zero than 1.
    [[nodiscard]] bool isSmall() const { return digits.empty() || exponent <= 0; }
};

/// Takes the digits at the head of a text off it.
std::string_view takeDigits(std::string_view& text)
{
    const std::string_view digits = text.substr(0, text.find_first_not_of("0123456789"));
    text.remove_prefix(digits.size());
    return digits;
}

/// Takes a character off the head of a text, if it is one of these.
bool takeOneOf(std::string_view& text, std::string_view characters)
{
    const bool isThere = !text.empty() && characters.find(text.front()) != std::string_view::npos;
    text.remove_prefix(isThere ? 1 : 0);
    return isThere;
}

/// The exponent that its digits stand for, 0 where there are none. One of more digits than fit makes any
/// number zero, far too large or a fraction, as this one does.
std::int64_t exponentOf(std::string_view digits)
{
    constexpr std::int64_t farBeyond = std::int64_t{1} << 62U;
    if (digits.empty())
        return 0;
    std::int64_t exponent = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
    return result.ec == std::errc() ? std::min(exponent, farBeyond) : farBeyond;
}

/// A number as JSON writes it; none for anything else.
std::optional<Decimal> decimalFrom(std::string_view text)
{
    Decimal decimal;
    decimal.isNegative = takeOneOf(text, "-");
    const std::string_view whole = takeDigits(text);
    const bool hasFraction = takeOneOf(text, ".");
    const std::string_view fraction = hasFraction ? takeDigits(text) : std::string_view();
    const bool hasExponent = takeOneOf(text, "eE");
    const bool isDivided = hasExponent && takeOneOf(text, "-");
    if (hasExponent && !isDivided)
        takeOneOf(text, "+");
    const std::string_view power = hasExponent ? takeDigits(text) : std::string_view();
    if (!text.empty() || whole.empty() || (whole.size() > 1 && whole.front() == '0') ||
        (hasFraction && fraction.empty()) || (hasExponent && power.empty()))
        return std::nullopt;

    decimal.digits = std::string(whole) + std::string(fraction);
    const std::size_t zeros = std::min(decimal.digits.find_first_not_of('0'), decimal.digits.size());
    decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
    decimal.digits.erase(0, zeros);
    decimal.exponent = (isDivided ? -exponentOf(power) : exponentOf(power)) +
                       static_cast<std::int64_t>(whole.size()) - static_cast<std::int64_t>(zeros);
    return decimal;
}

/// Whether a text is a number that no double holds because it is too large.
bool isTooLarge(std::string_view text)
{
    double value = 0.0;
    if (std::from_chars(text.data(), text.data() + text.size(), value).ec != std::errc::result_out_of_range)
        return false;
    const std::optional<Decimal> decimal = decimalFrom(text);
    return decimal && !decimal->isSmall();
}

/// JSON whose numbers all fit a double: the library refuses others, even where nobody asks for them.
struct FittingText
{
    std::string text;                                 ///< of the same length
    std::map<std::size_t, std::string_view> replaced; ///< by their places among all numbers
};

FittingText fitting(std::string_view json)
{
    FittingText result{std::string(json), {}};
    std::size_t numbers = 0;
    bool isInString = false;
    std::size_t next = 0;
    for (std::size_t at = 0; at < json.size(); at = next) {
        next = at + 1;
        if (isInString && json[at] == '\\')
            ++next;
        else if (json[at] == '"')
            isInString = !isInString;
        if (isInString || (json[at] != '-' && (json[at] < '0' || json[at] > '9')))
            continue;
        next = std::min(json.find_first_not_of("+-.0123456789eE", at), json.size());
        const std::string_view number = json.substr(at, next - at);
        if (isTooLarge(number)) {
            result.text.replace(at, number.size(), "0." + std::string(number.size() - 2, '0'));
            result.replaced.emplace(numbers, number);
        }
        ++numbers;
    }
    return result;
}

/// Takes the library's events and builds the tree; every rule beyond JSON's grammar is checked here.
class Builder final : public Library::json_sax_t
{
public:
    explicit Builder(const FittingText& json) : m_json(json) {}

    bool null() override { return add({nullptr}); }
    bool boolean(bool value) override { return add({value}); }
    bool string(Library::string_t& value) override { return add({std::move(value)}); }

    bool number_integer(Library::number_integer_t value) override
    {
        ++m_numbers;
        return add({value});
    }

    bool number_unsigned(Library::number_unsigned_t value) override
    {
        ++m_numbers;
        if (std::in_range<std::int64_t>(value))
            return add({static_cast<std::int64_t>(value)});
        return add({Number{std::to_string(value)}});
    }

    bool number_float(Library::number_float_t /*value*/, const Library::string_t& text) override
    {
        const auto replaced = m_json.replaced.find(m_numbers++);
        return add({Number{replaced == m_json.replaced.end() ? text : std::string(replaced->second)}});
    }

    bool binary(Library::binary_t& /*value*/) override
    {
        return false; // JSON text has no such values
    }

    bool start_object(std::size_t /*count*/) override { return open({Object{}}); }
    bool start_array(std::size_t /*count*/) override { return open({Array{}}); }

    bool key(Library::string_t& name) override
    {
        m_frames.back().key = std::move(name);
        return true;
    }

    bool end_object() override
    {
        auto& members = std::get<Object>(m_frames.back().container.value);
        std::ranges::stable_sort(members, {}, &Member::key);
        // From the end, so that the last of those with the same key stays.
        const auto rest = std::unique(members.rbegin(), members.rend(),
                                      [](const Member& a, const Member& b) { return a.key == b.key; });
        members.erase(members.begin(), rest.base());
        return close();
    }

    bool end_array() override { return close(); }

    bool parse_error(std::size_t position, const std::string& /*token*/,
                     const nlohmann::detail::exception& error) override
    {
        // `position` counts the bytes read, the offending one included, or one more at the end of the text.
        const std::size_t offset = std::min(position - 1, m_json.text.size());
        throw JsonError(lineAndColumn(m_json.text, offset) + ": " + reason(offset, error.what()));
    }

    Node takeRoot() { return std::move(m_root); }

private:
    struct Frame
    {
        Node container;
        std::string key; ///< in an object: of the value that is being read
    };

    bool open(Node&& container)
    {
        if (m_frames.size() == maxDepth) {
            throw JsonError(say(QT_TRANSLATE_NOOP("Json", "the JSON is nested more than %1 deep; looks and "
                                                          "lists of them need no more than 4"),
                                std::to_string(maxDepth)));
        }
        m_frames.push_back({std::move(container), {}});
        return true;
    }

    bool close()
    {
        Node finished = std::move(m_frames.back().container);
        m_frames.pop_back();
        return add(std::move(finished));
    }

    bool add(Node&& node)
    {
        if (m_frames.empty()) {
            m_root = std::move(node);
            m_isComplete = true;
            return true;
        }
        Frame& frame = m_frames.back();
        if (auto* items = std::get_if<Array>(&frame.container.value))
            items->push_back(std::move(node));
        else
            std::get<Object>(frame.container.value).push_back({std::move(frame.key), std::move(node)});
        return true;
    }

    [[nodiscard]] std::string reason(std::size_t offset, std::string_view message) const
    {
        if (m_isComplete)
            return say(QT_TRANSLATE_NOOP("Json", "there is more text after the end of the JSON value"));
        if (offset == m_json.text.size())
            return say(QT_TRANSLATE_NOOP("Json", "the text ends before the JSON value is complete"));
        // What follows this mark quotes the text that was read, which may be long or no UTF-8.
        message = message.substr(0, message.find("; last read: "));
        if (message.ends_with("ill-formed UTF-8 byte"))
            return say(QT_TRANSLATE_NOOP("Json", "the text is not UTF-8 here"));
        if (message.ends_with("invalid literal"))
            return say(QT_TRANSLATE_NOOP("Json", "%1 cannot stand here"),
                       inQuotes(characterAt(m_json.text, offset)));
        const std::string_view mark = " - ";
        const std::size_t markAt = message.find(mark);
        return std::string(markAt == std::string_view::npos ? message : message.substr(markAt + mark.size()));
    }

    const FittingText& m_json;
    std::vector<Frame> m_frames;
    std::size_t m_numbers = 0; ///< read so far
    Node m_root;
    bool m_isComplete = false;
};

} // namespace

QString translated(const char* text)
{
    return QCoreApplication::translate("Json", text);
}

Node read(std::string_view text)
{
    // To the library a NUL is the end of the text, whatever comes after it.
    if (const std::size_t nul = text.find('\0'); nul != std::string_view::npos)
        throw JsonError(lineAndColumn(text, nul) + ": " +
                        say(QT_TRANSLATE_NOOP("Json", "a NUL character cannot stand in JSON")));
    const DecimalPoint decimalPoint;
    const FittingText json = fitting(text);
    Builder builder(json);
    if (!Library::sax_parse(json.text.begin(), json.text.end(), &builder))
        // Every cause known to us has thrown already.
        throw JsonError(say(QT_TRANSLATE_NOOP("Json", "the text is not JSON")));
    return builder.takeRoot();
}

const Node* find(const Object& object, std::string_view key)
{
    const auto member = std::ranges::lower_bound(object, key, {}, &Member::key);
    return member != object.end() && member->key == key ? &member->node : nullptr;
}

std::optional<std::int64_t> integerFrom(const Node& node)
{
    if (const auto* integer = std::get_if<std::int64_t>(&node.value))
        return *integer;
    const auto* number = std::get_if<Number>(&node.value);
    if (number == nullptr)
        return std::nullopt;
    const Decimal decimal = decimalFrom(number->text).value();
    const auto places = static_cast<std::int64_t>(decimal.digits.size());
    if (places == 0)
        return 0;
    if (decimal.exponent < places || decimal.exponent > std::numeric_limits<std::int64_t>::digits10 + 1)
        return std::nullopt;
    const std::string digits = (decimal.isNegative ? "-" : "") + decimal.digits +
                               std::string(static_cast<std::size_t>(decimal.exponent - places), '0');
    std::int64_t value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return result.ec == std::errc() ? std::optional(value) : std::nullopt;
}

std::optional<float> floatFrom(const Node& node)
{
    if (const auto* integer = std::get_if<std::int64_t>(&node.value))
        return static_cast<float>(*integer);
    const auto* number = std::get_if<Number>(&node.value);
    if (number == nullptr)
        return std::nullopt;
    // Straight from the text: by way of a double the value would be rounded twice.
    const std::string& text = number->text;
    float value = 0.0F;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc())
        return value;
    // Out of range means too large, or so small that the nearest float is zero.
    const Decimal decimal = decimalFrom(text).value();
    return decimal.isSmall() ? std::optional(decimal.isNegative ? -0.0F : 0.0F) : std::nullopt;
}

std::string describe(const Node& node)
{
    struct Describer
    {
        std::string operator()(std::nullptr_t) const { return "null"; }
        std::string operator()(bool value) const { return value ? "true" : "false"; }
        std::string operator()(std::int64_t value) const { return std::to_string(value); }
        std::string operator()(const Number& number) const { return shortened(number.text); }
        std::string operator()(const std::string& text) const { return inQuotes(text); }
        std::string operator()(const Array&) const { return say(QT_TRANSLATE_NOOP("Json", "an array")); }
        std::string operator()(const Object&) const { return say(QT_TRANSLATE_NOOP("Json", "an object")); }
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
