// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/look_json.h"

#include "model/json_reader.h"
#include "model/sliders.h"

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <utility>

namespace tessel {

namespace {

using json::Array;
using json::describe;
using json::Node;
using json::Object;
using json::say;

constexpr std::int64_t maxColor = 0xFFFFFFFF;

constexpr const char* floatExpected =
    QT_TRANSLATE_NOOP("Json", "a number from -3.4028235e+38 to 3.4028235e+38 (a 32-bit float) is expected");
constexpr const char* boolExpected = QT_TRANSLATE_NOOP("Json", "true or false is expected");
constexpr const char* colorExpected =
    QT_TRANSLATE_NOOP("Json", "a colour is a whole number from 0 to 4294967295");

struct KeyExpectation
{
    std::string_view key;
    const char* expected;
};

/// What is right for each key, worded to follow "<key> holds <value>; ".
constexpr std::array<KeyExpectation, 20> keyExpectations{{
    {"pattern", QT_TRANSLATE_NOOP("Json", "a whole number from 0 (Flow) to 35 (Neuro) is expected")},
    {"palette", QT_TRANSLATE_NOOP("Json", "a whole number from 0 to 9223372036854775807 is expected")},
    {"dither", QT_TRANSLATE_NOOP("Json", "a whole number from 0 (Smooth) to 9 (Benday) is expected")},
    {"pixel", floatExpected},
    {"levels", floatExpected},
    {"scale", floatExpected},
    {"warp", floatExpected},
    {"speed", floatExpected},
    {"contrast", floatExpected},
    {"offset", floatExpected},
    {"grain", floatExpected},
    {"vignette", floatExpected},
    {"invert", boolExpected},
    {"seed", floatExpected},
    {"imagePath",
     QT_TRANSLATE_NOOP("Json", "the path of a photo as a string, without NUL characters, is expected")},
    {"custom",
     QT_TRANSLATE_NOOP("Json", "an array of colours, whole numbers from 0 to 4294967295, is expected")},
    {"id", QT_TRANSLATE_NOOP("Json", "a UUID such as \"6F9619FF-8B86-D011-B42D-00C04FC964FF\" is expected")},
    {"name", QT_TRANSLATE_NOOP("Json", "a string is expected")},
    {"look", QT_TRANSLATE_NOOP("Json", "a look (a JSON object) is expected")},
    {"motion", boolExpected},
}};

const char* expectedFor(std::string_view key)
{
    const auto* const entry = std::ranges::find(keyExpectations, key, &KeyExpectation::key);
    return entry == keyExpectations.end() ? "" : entry->expected;
}

/// \param name what holds the value, as `entry 3: "pattern"`
/// \param held the value as a person would write it
/// \param expected what would be right, not translated yet
[[noreturn]] void refuse(const std::string& name, const std::string& held, const char* expected)
{
    //: %1 is a place such as entry 3: "pattern", %2 a value, %3 what is expected
    throw JsonError(say(QT_TRANSLATE_NOOP("Json", "%1 holds %2; %3"), name, held, say(expected)));
}

std::string entryPrefix(std::size_t index)
{
    //: of a list; followed by what is wrong with it
    return say(QT_TRANSLATE_NOOP("Json", "entry %1: "), std::to_string(index + 1));
}

std::string quotedKey(std::string_view key)
{
    return '"' + std::string(key) + '"';
}

bool isUuid(std::string_view text)
{
    constexpr std::string_view shape = "00000000-0000-0000-0000-000000000000";
    const auto fits = [](char character, char place) {
        const bool isDigit = (character >= '0' && character <= '9') ||
                             (character >= 'a' && character <= 'f') || (character >= 'A' && character <= 'F');
        return place == '-' ? character == '-' : isDigit;
    };
    return std::ranges::equal(text, shape, fits);
}

bool isPath(std::string_view text)
{
    return text.find('\0') == std::string_view::npos;
}

/// Writes JSON text. What decoding would refuse is refused here already: written, it would be lost.
class Writer
{
public:
    std::string takeText() { return std::move(m_text); }

    /// Writes an array; messages about its entries start with "entry N: ".
    template<typename Entry, typename Write>
    void writeEntries(const std::vector<Entry>& entries, Write writeEntry)
    {
        m_text += '[';
        for (std::size_t index = 0; index < entries.size(); ++index) {
            if (index > 0)
                m_text += ',';
            m_where = entryPrefix(index);
            writeEntry(entries[index]);
        }
        m_text += ']';
    }

    void write(const Look& look)
    {
        m_text += '{';
        writeRaw("pattern", static_cast<int>(look.pattern), look.pattern <= Pattern::neuro);
        writeRaw("palette", look.palette, true);
        writeRaw("dither", static_cast<int>(look.dither), look.dither <= Dither::benday);
        writeFloat("pixel", look.pixel);
        writeFloat("levels", look.levels);
        writeFloat("scale", look.scale);
        writeFloat("warp", look.warp);
        writeFloat("speed", look.speed);
        writeFloat("contrast", look.contrast);
        writeFloat("offset", look.offset);
        writeFloat("grain", look.grain);
        writeFloat("vignette", look.vignette);
        writeBool("invert", look.invert);
        writeFloat("seed", look.seed);
        if (look.imagePath)
            writeString("imagePath", *look.imagePath, isPath(*look.imagePath));
        if (look.custom) {
            writeKey("custom");
            writeColors(*look.custom);
        }
        m_text += '}';
    }

    void write(const Preset& preset)
    {
        m_text += '{';
        writeString("id", preset.id, isUuid(preset.id));
        writeString("name", preset.name, true);
        writeKey("look");
        m_where += quotedKey("look") + ": ";
        write(preset.look);
        writeBool("motion", preset.motion);
        m_text += '}';
    }

    void writeColors(const std::vector<Color>& colors)
    {
        m_text += '[';
        for (std::size_t index = 0; index < colors.size(); ++index) {
            if (index > 0)
                m_text += ',';
            m_text += std::to_string(colors[index]);
        }
        m_text += ']';
    }

private:
    void writeKey(std::string_view key)
    {
        if (m_text.back() != '{')
            m_text += ',';
        m_text += quotedKey(key);
        m_text += ':';
    }

    void writeRaw(std::string_view key, std::int64_t value, bool isRight)
    {
        if (!isRight)
            refuse(m_where + quotedKey(key), std::to_string(value), expectedFor(key));
        writeKey(key);
        m_text += std::to_string(value);
    }

    void writeFloat(std::string_view key, float value)
    {
        std::array<char, 32> digits{};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
        const std::string_view shortest(digits.data(), static_cast<std::size_t>(end - digits.data()));
        if (!std::isfinite(value))
            refuse(m_where + quotedKey(key), std::string(shortest), expectedFor(key));
        writeKey(key);
        // An integer literal has no negative zero.
        m_text += shortest == "-0" ? std::string_view("-0.0") : shortest;
    }

    void writeBool(std::string_view key, bool value)
    {
        writeKey(key);
        m_text += value ? "true" : "false";
    }

    void writeString(std::string_view key, std::string_view value, bool isRight)
    {
        const std::optional<std::string> string = json::escaped(value);
        if (!isRight || !string) {
            refuse(m_where + quotedKey(key), json::inQuotes(value),
                   isRight ? QT_TRANSLATE_NOOP("Json", "text in UTF-8 is expected") : expectedFor(key));
        }
        writeKey(key);
        m_text += *string;
    }

    std::string m_text;
    std::string m_where; ///< starts every message
};

std::vector<Color> readColors(const Array& array, std::string_view where)
{
    std::vector<Color> colors;
    colors.reserve(array.size());
    for (std::size_t index = 0; index < array.size(); ++index) {
        const std::optional<std::int64_t> color = json::integerFrom(array[index]);
        if (!color || *color < 0 || *color > maxColor) {
            refuse(std::string(where) + '[' + std::to_string(index) + ']', describe(array[index]),
                   colorExpected);
        }
        colors.push_back(static_cast<Color>(*color));
    }
    return colors;
}

/// Reads the keys of one object. Each `read` leaves its target alone where the key is missing or null.
class Fields
{
public:
    /// \param prefix starts every message
    Fields(const Object& from, std::string prefix) : m_object(from), m_where(std::move(prefix)) {}

    void read(std::string_view key, bool& target) const { readAlternative(key, target); }
    void read(std::string_view key, std::string& target) const { readAlternative(key, target); }

    void read(std::string_view key, std::int64_t& target) const { readWith(key, target, json::integerFrom); }
    void read(std::string_view key, float& target) const { readWith(key, target, json::floatFrom); }

    void read(std::string_view key, Pattern& target) const
    {
        readWith(key, target, [](const Node& node) {
            const std::optional<std::int64_t> raw = json::integerFrom(node);
            return raw ? patternFromRaw(*raw) : std::nullopt;
        });
    }

    void read(std::string_view key, Dither& target) const
    {
        readWith(key, target, [](const Node& node) {
            const std::optional<std::int64_t> raw = json::integerFrom(node);
            return raw ? ditherFromRaw(*raw) : std::nullopt;
        });
    }

    void readPath(std::string_view key, std::optional<std::string>& target) const
    {
        readWith(key, target, [](const Node& node) -> std::optional<std::string> {
            const auto* path = std::get_if<std::string>(&node.value);
            return path == nullptr || !isPath(*path) ? std::nullopt : std::optional(*path);
        });
    }

    void readColorList(std::string_view key, std::optional<std::vector<Color>>& target) const
    {
        if (const Node* node = given(key))
            target = readColors(alternative<Array>(key, *node), m_where + quotedKey(key));
    }

    void require(std::string_view key) const
    {
        const Node* node = json::find(m_object, key);
        if (node == nullptr)
            throw JsonError(say(QT_TRANSLATE_NOOP("Json", "%1 is missing; %2"), m_where + quotedKey(key),
                                say(expectedFor(key))));
        if (std::holds_alternative<std::nullptr_t>(node->value))
            refuse(m_where + quotedKey(key), describe(*node), expectedFor(key));
    }

    /// Refuses what a key holds although its type is right.
    void check(std::string_view key, bool isRight) const
    {
        if (!isRight)
            refuse(m_where + quotedKey(key), describe(*given(key)), expectedFor(key));
    }

    /// The object that a key holds, with the prefix for messages about it.
    [[nodiscard]] Fields inner(std::string_view key) const
    {
        return {alternative<Object>(key, *given(key)), m_where + quotedKey(key) + ": "};
    }

private:
    [[nodiscard]] const Node* given(std::string_view key) const
    {
        const Node* node = json::find(m_object, key);
        return node == nullptr || std::holds_alternative<std::nullptr_t>(node->value) ? nullptr : node;
    }

    template<typename Alternative>
    [[nodiscard]] const Alternative& alternative(std::string_view key, const Node& node) const
    {
        const auto* value = std::get_if<Alternative>(&node.value);
        if (value == nullptr)
            refuse(m_where + quotedKey(key), describe(node), expectedFor(key));
        return *value;
    }

    template<typename Alternative>
    void readAlternative(std::string_view key, Alternative& target) const
    {
        if (const Node* node = given(key))
            target = alternative<Alternative>(key, *node);
    }

    /// \param convert gives an optional value, empty where the node is not right
    template<typename Target, typename Convert>
    void readWith(std::string_view key, Target& target, Convert convert) const
    {
        const Node* node = given(key);
        if (node == nullptr)
            return;
        const auto value = convert(*node);
        if (!value)
            refuse(m_where + quotedKey(key), describe(*node), expectedFor(key));
        target = *value;
    }

    const Object& m_object;
    std::string m_where;
};

Look readLook(const Fields& fields)
{
    Look look;
    fields.read("pattern", look.pattern);
    fields.read("palette", look.palette);
    fields.read("dither", look.dither);
    fields.read("pixel", look.pixel);
    fields.read("levels", look.levels);
    fields.read("scale", look.scale);
    fields.read("warp", look.warp);
    fields.read("speed", look.speed);
    fields.read("contrast", look.contrast);
    fields.read("offset", look.offset);
    fields.read("grain", look.grain);
    fields.read("vignette", look.vignette);
    fields.read("invert", look.invert);
    fields.read("seed", look.seed);
    fields.readPath("imagePath", look.imagePath);
    fields.readColorList("custom", look.custom);

    look.palette = std::max<std::int64_t>(look.palette, 0);
    look.speed = std::max(look.speed, sliderOf(&Look::speed).lower);
    return look;
}

Preset readPreset(const Fields& fields)
{
    for (const std::string_view key : {"id", "name", "look", "motion"})
        fields.require(key);
    Preset preset;
    fields.read("id", preset.id);
    fields.check("id", isUuid(preset.id));
    fields.read("name", preset.name);
    preset.look = readLook(fields.inner("look"));
    fields.read("motion", preset.motion);
    return preset;
}

/// The article and type of a value, as in "this is an array".
const char* typeName(const Node& node)
{
    static constexpr const char* number = QT_TRANSLATE_NOOP("Json", "a number");
    static constexpr std::array<const char*, std::variant_size_v<decltype(Node::value)>> names{
        "null",
        QT_TRANSLATE_NOOP("Json", "a Boolean"),
        number,
        number,
        QT_TRANSLATE_NOOP("Json", "a string"),
        QT_TRANSLATE_NOOP("Json", "an array"),
        QT_TRANSLATE_NOOP("Json", "an object")};
    return names.at(node.value.index());
}

/// The value as an object or an array.
/// \param rule what it should be, as "a look is a JSON object"
template<typename Container>
const Container& container(const Node& node, std::string_view where, const char* rule)
{
    const auto* value = std::get_if<Container>(&node.value);
    if (value == nullptr)
        //: such as: a look is a JSON object, this is an array
        throw JsonError(std::string(where) +
                        say(QT_TRANSLATE_NOOP("Json", "%1, this is %2"), say(rule), say(typeName(node))));
    return *value;
}

constexpr const char* lookRule = QT_TRANSLATE_NOOP("Json", "a look is a JSON object");

/// \param readEntry takes an entry and the prefix for messages about it
template<typename Entry, typename ReadEntry>
std::vector<Entry> readEntries(std::string_view text, const char* rule, ReadEntry readEntry)
{
    const Node root = json::read(text);
    const auto& array = container<Array>(root, {}, rule);
    std::vector<Entry> entries;
    entries.reserve(array.size());
    for (std::size_t index = 0; index < array.size(); ++index)
        entries.push_back(readEntry(array[index], entryPrefix(index)));
    return entries;
}

} // namespace

std::string encodeLook(const Look& look)
{
    Writer writer;
    writer.write(look);
    return writer.takeText();
}

std::string encodeLooks(const std::vector<Look>& looks)
{
    Writer writer;
    writer.writeEntries(looks, [&writer](const Look& look) { writer.write(look); });
    return writer.takeText();
}

std::string encodePresets(const std::vector<Preset>& presets)
{
    Writer writer;
    writer.writeEntries(presets, [&writer](const Preset& preset) { writer.write(preset); });
    return writer.takeText();
}

std::string encodeColorLists(const std::vector<std::vector<Color>>& lists)
{
    Writer writer;
    writer.writeEntries(lists, [&writer](const std::vector<Color>& list) { writer.writeColors(list); });
    return writer.takeText();
}

Look decodeLook(std::string_view json)
{
    const Node root = json::read(json);
    return readLook({container<Object>(root, {}, lookRule), {}});
}

std::vector<Look> decodeLooks(std::string_view json)
{
    return readEntries<Look>(json, QT_TRANSLATE_NOOP("Json", "a list of looks is a JSON array"),
                             [](const Node& node, const std::string& where) {
                                 return readLook({container<Object>(node, where, lookRule), where});
                             });
}

std::vector<Preset> decodePresets(std::string_view json)
{
    return readEntries<Preset>(
        json, QT_TRANSLATE_NOOP("Json", "a list of presets is a JSON array"),
        [](const Node& node, const std::string& where) {
            return readPreset(
                {container<Object>(node, where, QT_TRANSLATE_NOOP("Json", "a preset is a JSON object")),
                 where});
        });
}

std::vector<std::vector<Color>> decodeColorLists(std::string_view json)
{
    return readEntries<std::vector<Color>>(
        json, QT_TRANSLATE_NOOP("Json", "a list of colour lists is a JSON array"),
        [](const Node& node, const std::string& where) {
            return readColors(
                container<Array>(node, where, QT_TRANSLATE_NOOP("Json", "a colour list is a JSON array")),
                where);
        });
}

} // namespace tessel
