// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/json_reader.h"
#include "model/look_json.h"

#include <QString>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <limits>
#include <random>

namespace tessel {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

const std::string uuid = "6F9619FF-8B86-D011-B42D-00C04FC964FF";

/// The message with which decoding or encoding fails, or "done".
template<typename Convert, typename Input>
std::string failure(Convert convert, const Input& input)
{
    try {
        static_cast<void>(convert(input));
    } catch (const JsonError& error) {
        return error.what();
    }
    return "done";
}

std::string lookFailure(std::string_view json)
{
    return failure(decodeLook, json);
}

std::string presetJson(std::string_view id, std::string_view look = "{}")
{
    return R"([{"id":")" + std::string(id) + R"(","name":"Tea","look":)" + std::string(look) +
           R"(,"motion":true}])";
}

TEST(EncodeLook, WritesKeysInDeclarationOrderAndLeavesOutAbsentOptionals)
{
    Look look;
    EXPECT_EQ(encodeLook(look),
              R"({"pattern":0,"palette":0,"dither":3,"pixel":8,"levels":5,"scale":1,"warp":1,"speed":0.35,)"
              R"("contrast":1.15,"offset":0,"grain":0.04,"vignette":0.25,"invert":false,"seed":12})");

    look.pattern = Pattern::neuro;
    look.palette = 221;
    look.offset = -0.0F;
    look.warp = 1e-7F;
    look.invert = true;
    look.imagePath = "/t\u00e9 \"1\"\n.png";
    look.custom = {0, 0xFFFFFF};
    EXPECT_EQ(encodeLook(look),
              R"({"pattern":35,"palette":221,"dither":3,"pixel":8,"levels":5,"scale":1,"warp":1e-07,)"
              R"("speed":0.35,"contrast":1.15,"offset":-0.0,"grain":0.04,"vignette":0.25,"invert":true,)"
              R"("seed":12,"imagePath":"/té \"1\"\n.png","custom":[0,16777215]})");

    look.custom->clear();
    EXPECT_THAT(encodeLook(look), HasSubstr(R"("custom":[])"));
}

TEST(EncodeLook, RefusesWhatCouldNotBeReadBack)
{
    Look look;
    look.scale = std::numeric_limits<float>::quiet_NaN();
    EXPECT_THAT(failure(encodeLook, look), StartsWith(R"("scale" holds nan; a number from )"));
    look.scale = -std::numeric_limits<float>::infinity();
    EXPECT_THAT(failure(encodeLook, look), StartsWith(R"("scale" holds -inf; a number from )"));

    look = {};
    look.imagePath = "caf\xE9.png"; // Latin-1
    EXPECT_EQ(failure(encodeLook, look), R"("imagePath" holds "caf\ufffd.png"; text in UTF-8 is expected)");
    look.imagePath = std::string("a\0b", 3);
    EXPECT_THAT(failure(encodeLook, look),
                StartsWith(R"("imagePath" holds "a\u0000b"; the path of a photo)"));

    look = {};
    look.seed = std::numeric_limits<float>::infinity();
    const std::vector<Preset> presets{{uuid, "Good", {}, false}, {uuid, "Bad", look, false}};
    EXPECT_THAT(failure(encodePresets, presets), StartsWith(R"(entry 2: "look": "seed" holds inf)"));
    EXPECT_THAT(failure(encodePresets, std::vector<Preset>{{"7", "", {}, false}}),
                StartsWith(R"(entry 1: "id" holds "7"; a UUID)"));
}

TEST(DecodeLook, SuppliesTheDefaults)
{
    EXPECT_EQ(decodeLook("{}"), Look());
    EXPECT_EQ(decodeLook("\xEF\xBB\xBF \r\n\t{ } "), Look()); // a byte order mark does no harm
    EXPECT_EQ(decodeLook(R"({"pattern":null,"palette":null,"dither":null,"pixel":null,"levels":null,)"
                         R"("scale":null,"warp":null,"speed":null,"contrast":null,"offset":null,)"
                         R"("grain":null,"vignette":null,"invert":null,"seed":null,"imagePath":null,)"
                         R"("custom":null})"),
              Look());
}

TEST(DecodeLook, PassesOverWhatUnknownKeysHold)
{
    for (const char* const value :
         {R"({"speed":[1,"x",null,true]})", "1e999", "-1E+999", R"({"y":[0,[1e999,{"z":-1e999}]]})",
          R"({"a":1,"\u0061":1})", R"("1e999 \" 1e999")", "-0.0", "123456789012345678901234567890"})
        EXPECT_EQ(decodeLook(R"({"x":1e9,"Pattern":)" + std::string(value) + R"(,"Pattern":2e999})"), Look());
    // Numbers before and after it are still told apart.
    const Look look = decodeLook(R"({"x":[1.5,1e999,"2e999"],"scale":2.5,"x":9e999,"warp":3.5})");
    EXPECT_EQ(look.scale, 2.5F);
    EXPECT_EQ(look.warp, 3.5F);
    EXPECT_EQ(lookFailure(R"({"x":[1e999,-1e999],"seed":4e999})").substr(0, 21), R"("seed" holds 4e999; a)");
    for (const char* const wrong : {"01e999", "1.e999", "1e999.5", "-e999", "1e+", "--1e999", "1e999e1"})
        EXPECT_THAT(lookFailure(R"({"x":)" + std::string(wrong) + "}"), StartsWith("line 1, column "))
            << wrong;
    EXPECT_EQ(lookFailure("{\"x\":1e9999,\n oops}"), R"(line 2, column 2: "o" cannot stand here)");
}

TEST(DecodeLook, TakesTheLastOfAKeyThatStandsTwice)
{
    const Look look = decodeLook(R"({"seed":"x","scale":1,"seed":1,"s\u0065ed":2})");
    EXPECT_EQ(look.seed, 2.0F);
    EXPECT_THAT(lookFailure(R"({"seed":1,"seed":"x"})"), StartsWith(R"("seed" holds "x"; )"));
}

TEST(DecodeLook, TakesWholeNumbersHoweverTheyAreWritten)
{
    for (const char* const three :
         {"3.0", "3e0", "30e-1", "0.3E+1", "0.00003e5", "300000000000000000000e-20"})
        EXPECT_EQ(decodeLook(R"({"pattern":)" + std::string(three) + "}").pattern, Pattern::ripple) << three;
    const auto palette = [](const std::string& digits) {
        return decodeLook(R"({"palette":)" + digits + "}").palette;
    };
    EXPECT_EQ(palette("9.223372036854775807e18"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(palette("-9.223372036854775808e18"), 0);
    EXPECT_EQ(palette("0e99999999999999999999"), 0);
    EXPECT_EQ(palette("-0.0"), 0);
    EXPECT_EQ(decodeLook(R"({"custom":[1.0,4294967295,4.294967295e9]})").custom,
              (std::vector<Color>{1, 0xFFFFFFFF, 0xFFFFFFFF}));
}

TEST(DecodeLook, ReadsEveryKey)
{
    const Look look = decodeLook(
        R"({"custom":[0,1,16777215],"imagePath":"C:\\t\u00e9\ud83c\udf75","seed":10,"invert":true,)"
        R"("vignette":9.0,"grain":8e-2,"offset":7,"contrast":-6,"speed":5,"warp":4E+2,"scale":3.5,)"
        R"("levels":2,"pixel":1,"dither":8,"palette":223,"pattern":30})");
    EXPECT_EQ(
        encodeLook(look),
        R"({"pattern":30,"palette":223,"dither":8,"pixel":1,"levels":2,"scale":3.5,"warp":400,"speed":5,)"
        R"("contrast":-6,"offset":7,"grain":0.08,"vignette":9,"invert":true,"seed":10,)"
        "\"imagePath\":\"C:\\\\t\u00e9\U0001F375\",\"custom\":[0,1,16777215]}");
}

TEST(DecodeLook, RaisesSpeedAndPalette)
{
    for (const char* const speed : {"0", "-1", "-0.0", "0.009", "-3e38", "1e-999"})
        EXPECT_EQ(decodeLook(R"({"speed":)" + std::string(speed) + "}").speed, 0.01F) << speed;
    EXPECT_EQ(decodeLook(R"({"speed":0.011})").speed, 0.011F);
    EXPECT_EQ(decodeLook(R"({"palette":-3})").palette, 0);
    EXPECT_EQ(decodeLook(R"({"palette":-9223372036854775808})").palette, 0);
    EXPECT_EQ(decodeLook(R"({"palette":9223372036854775807})").palette,
              std::numeric_limits<std::int64_t>::max());
}

TEST(DecodeLook, RoundsFloatsOnce)
{
    const auto scale = [](const std::string& digits) {
        return decodeLook(R"({"scale":)" + digits + "}").scale;
    };
    // Just above the middle of two floats; rounded to double first it would be the middle, and go down.
    EXPECT_EQ(scale("1.00000005960464477539062500000000001"), std::nextafter(1.0F, 2.0F));
    EXPECT_EQ(scale("1.000000059604644775390625"), 1.0F);
    EXPECT_EQ(scale("16777217"), 16777216.0F);
    EXPECT_EQ(scale("9007199791611905"), 9007200328482816.0F); // 2^53 + 2^29 + 1: by way of double, down
    EXPECT_EQ(scale("18446744073709551616"), 18446744073709551616.0F);
    EXPECT_EQ(scale("100000000000000000000000000000000000000"), 1e38F);
    EXPECT_EQ(scale("3.4028235e38"), std::numeric_limits<float>::max());
    EXPECT_EQ(scale("1e-45"), std::numeric_limits<float>::denorm_min());
    EXPECT_EQ(scale("1e-60"), 0.0F);
    EXPECT_TRUE(std::signbit(scale("-1e-400")));
    EXPECT_TRUE(std::signbit(scale("-0.0")));
    EXPECT_EQ(scale("0.000e999999999999"), 0.0F);
}

TEST(DecodeLook, NamesKeyValueAndWhatIsRight)
{
    const std::string anyFloat = "a number from -3.4028235e+38 to 3.4028235e+38 (a 32-bit float) is expected";
    const std::string anyColors = "an array of colours, whole numbers from 0 to 4294967295, is expected";
    const std::string anyColor = "a colour is a whole number from 0 to 4294967295";

    const std::vector<std::tuple<std::string, std::string, std::vector<std::string>>> wrong{
        {"pattern",
         "a whole number from 0 (Flow) to 35 (Neuro) is expected",
         {"36", "-1", "36.0", "3.00000000000000000000001", "1e-1", R"("flow")", "1e999", "256",
          "9223372036854775807", "-9223372036854775808"}},
        {"dither",
         "a whole number from 0 (Smooth) to 9 (Benday) is expected",
         {"10", "-1", "256", "9223372036854775807", "-9223372036854775808", "false"}},
        {"palette",
         "a whole number from 0 to 9223372036854775807 is expected",
         {"1.5", "9223372036854775808", "18446744073709551616", "-9223372036854775809", "9.3e18",
          "1e99999999999999999999", "1e-99999999999999999999"}},
        {"pixel", anyFloat, {R"("8")"}},
        {"scale", anyFloat, {"1e39"}},
        {"warp", anyFloat, {"-3.4028236e38"}},
        {"speed", anyFloat, {"-1e999"}},
        {"seed", anyFloat, {"true"}},
        {"invert", "true or false is expected", {"0", R"("true")"}},
        {"imagePath",
         "the path of a photo as a string, without NUL characters, is expected",
         {"7", R"("a\u0000b")"}},
    };
    const auto expectRefused = [](const auto& key, const auto& value, const auto& expected) {
        EXPECT_EQ(lookFailure("{\"" + key + "\":" + value + "}"),
                  '"' + key + "\" holds " + value + "; " + expected);
    };
    for (const auto& [key, expected, values] : wrong)
        for (const std::string& value : values)
            expectRefused(key, value, expected);

    const std::vector<std::pair<std::string, std::string>> cases{
        {R"({"levels":[5]})", R"("levels" holds an array; )" + anyFloat},
        {R"({"custom":{}})", R"("custom" holds an object; )" + anyColors},
        {R"({"custom":[0,1,4294967296]})", R"("custom"[2] holds 4294967296; )" + anyColor},
        {R"({"custom":[-1]})", R"("custom"[0] holds -1; )" + anyColor},
        {R"({"custom":[1.5]})", R"("custom"[0] holds 1.5; )" + anyColor},
        {R"({"custom":[0,null]})", R"("custom"[1] holds null; )" + anyColor},
        {R"({"custom":[0,1e999]})", R"("custom"[1] holds 1e999; )" + anyColor},
        {"[]", "a look is a JSON object, this is an array"},
        {"null", "a look is a JSON object, this is null"},
        {"1e5", "a look is a JSON object, this is a number"},
        {"\"{}\"", "a look is a JSON object, this is a string"},
        {"1e999", "a look is a JSON object, this is a number"},
    };
    for (const auto& [json, message] : cases)
        EXPECT_EQ(lookFailure(json), message) << json;
}

TEST(DecodeLook, CutsLongValuesShortAndKeepsThemPrintable)
{
    const std::string tea = "\xE8\x8C\xB6"; // three bytes
    std::string path = "\x7F\xC2\x9B";      // DEL and the one-character form of ESC [
    for (int count = 0; count < 1000; ++count)
        path += tea;
    const std::string message = lookFailure(R"({"pattern":")" + path + R"("})");
    EXPECT_THAT(message, StartsWith(R"("pattern" holds "\u007f\u009b\u8336)"));
    EXPECT_THAT(message, HasSubstr(R"(\u8336..."; a whole number)"));
    EXPECT_LT(message.size(), 200U);

    const std::string digits(10'000, '1');
    EXPECT_THAT(lookFailure(R"({"palette":)" + digits + "}"),
                StartsWith(R"("palette" holds )" + std::string(37, '1') + "...; "));
    EXPECT_LT(lookFailure(R"({"seed":)" + digits + ".5}").size(), 200U);
}

TEST(DecodeLook, SaysWhereTheSyntaxBreaks)
{
    const std::string early = ": the text ends before the JSON value is complete";
    const std::string more = ": there is more text after the end of the JSON value";
    const std::vector<std::pair<std::string, std::string>> cases{
        {"", "line 1, column 1" + early},
        {" \n ", "line 2, column 2" + early},
        {R"({"speed":)", "line 1, column 10" + early},
        {"{\"seed\":1,\n \"na", "line 2, column 5" + early},
        {R"({"seed":1)", "line 1, column 10" + early},
        {R"({"seed":tru)", "line 1, column 12" + early},
        {"{}x", "line 1, column 3" + more},
        {"{}\n\n{}", "line 3, column 1" + more},
        {"{}]", "line 1, column 3" + more},
        {R"({"speed":NaN})", R"(line 1, column 10: "N" cannot stand here)"},
        {R"({"speed":Infinity})", R"(line 1, column 10: "I" cannot stand here)"},
        {R"({"speed":+1})", R"(line 1, column 10: "+" cannot stand here)"},
        {R"({"t\u00e9":'a'})", R"(line 1, column 12: "'" cannot stand here)"},
        {"{\"t\u00e9\":\u00e9}", R"(line 1, column 7: "\u00e9" cannot stand here)"},
        {R"({"speed":-Infinity})", "line 1, column 11: invalid number; expected digit after '-'"},
        {R"({"speed":1.})", "line 1, column 12: invalid number; expected digit after '.'"},
        {"{\"name\":\"a\nb\"}", "line 1, column 11: invalid string: control character U+000A (LF) must be "
                                "escaped to \\u000A or \\n"},
        {"{\"name\":\"a\xFF\"}", "line 1, column 11: the text is not UTF-8 here"},
        {"{\"name\":\"\xC3(\"}", "line 1, column 11: the text is not UTF-8 here"},
        {"{\"name\":\"\xED\xA0\x80\"}", "line 1, column 11: the text is not UTF-8 here"},
        {std::string("{}\0{", 4), "line 1, column 3: a NUL character cannot stand in JSON"},
        {std::string("{\"a\":\"\0\"}", 9), "line 1, column 7: a NUL character cannot stand in JSON"},
    };
    for (const auto& [json, message] : cases)
        EXPECT_EQ(lookFailure(json), message) << json;
    for (const char* const json :
         {R"({"seed":01})", R"({"seed":.5})", R"({"seed":1,})", R"({seed:1})", R"({"seed" 1})",
          R"({"custom":[1 2]})", R"({/**/})", R"({"name":"\ud800"})", R"({"name":"\x41"})",
          R"({"seed":0x10})", "{]", "\xEF\xBB{}"})
        EXPECT_THAT(lookFailure(json), StartsWith("line 1, column ")) << json;
}

TEST(DecodeLook, StopsAtDeepNesting)
{
    const auto nested = [](std::size_t depth) {
        return R"({"x":)" + std::string(depth - 1, '[') + std::string(depth - 1, ']') + "}";
    };
    EXPECT_EQ(decodeLook(nested(32)), Look());
    EXPECT_THAT(lookFailure(nested(33)), StartsWith("the JSON is nested more than 32 deep"));

    std::string brackets;
    brackets.resize(10'000'000, '[');
    EXPECT_THAT(lookFailure(brackets), StartsWith("the JSON is nested more than 32 deep"));
    std::string objects;
    for (int depth = 0; depth < 100'000; ++depth)
        objects += R"({"a":)";
    EXPECT_THAT(lookFailure(objects), StartsWith("the JSON is nested more than 32 deep"));
}

TEST(DecodeLook, DoesNotDependOnTheLocale)
{
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    setenv("LOCPATH", TEST_LOCALES, 1);
    int tried = 0;
    for (const char* const name : {"de_DE.UTF-8", "ps_AF.UTF-8"}) { // a comma, and a sign of two bytes
        if (std::setlocale(LC_NUMERIC, name) == nullptr)
            continue;
        ++tried;
        const Look look = decodeLook(R"({"scale":2.75,"warp":1.5e1,"grain":-0.125})");
        const std::string text = encodeLook(look);
        EXPECT_STRNE(std::localeconv()->decimal_point, ".") << "the caller's locale is restored";
        std::setlocale(LC_NUMERIC, before.c_str());
        EXPECT_EQ(look.scale, 2.75F) << name;
        EXPECT_EQ(look.warp, 15.0F) << name;
        EXPECT_EQ(look.grain, -0.125F) << name;
        EXPECT_THAT(text, HasSubstr(R"("scale":2.75)")) << name;
    }
    unsetenv("LOCPATH");
    if (tried == 0)
        GTEST_SKIP() << "localedef could not make the locales";
}

TEST(DecodeLists, SayWhichEntryIsWrong)
{
    EXPECT_EQ(decodeLooks("[]"), std::vector<Look>());
    EXPECT_EQ(decodeLooks("[{},{}]"), std::vector<Look>(2));
    EXPECT_THAT(failure(decodeLooks, R"([{},{},{"pattern":36}])"),
                StartsWith(R"(entry 3: "pattern" holds 36; a whole)"));
    EXPECT_THAT(failure(decodeLooks, R"([{},{"custom":[0,-1]}])"),
                StartsWith(R"(entry 2: "custom"[1] holds -1; a colour)"));
    EXPECT_THAT(failure(decodeLooks, R"([{},{"custom":[0,1e999]}])"),
                StartsWith(R"(entry 2: "custom"[1] holds 1e999; )"));
    EXPECT_EQ(failure(decodeLooks, "[{},7]"), "entry 2: a look is a JSON object, this is a number");
    EXPECT_EQ(failure(decodeLooks, "{}"), "a list of looks is a JSON array, this is an object");

    const std::vector<std::vector<Color>> lists{{}, {0}, {0xFFFFFFFF, 1, 2, 3, 4, 5, 6}};
    EXPECT_EQ(encodeColorLists(lists), "[[],[0],[4294967295,1,2,3,4,5,6]]");
    EXPECT_EQ(decodeColorLists(encodeColorLists(lists)), lists);
    EXPECT_THAT(failure(decodeColorLists, "[[],[1,4294967296]]"),
                StartsWith("entry 2: [1] holds 4294967296; a colour is"));
    EXPECT_THAT(failure(decodeColorLists, "[[1e999]]"), StartsWith("entry 1: [0] holds 1e999; a colour is"));
    EXPECT_EQ(failure(decodeColorLists, "[[],null]"), "entry 2: a colour list is a JSON array, this is null");
    EXPECT_EQ(failure(decodeColorLists, "\"\""), "a list of colour lists is a JSON array, this is a string");
}

TEST(DecodePresets, RequiresAllFourKeys)
{
    const std::vector<Preset> presets{
        {uuid, "Tea", {}, true},
        {"6f9619ff-8b86-d011-b42d-00c04fc964ff", std::string("\0\"\u00e9", 4), {}, false}};
    EXPECT_EQ(encodePresets({presets[0]}), presetJson(uuid, encodeLook({})));
    EXPECT_EQ(decodePresets(encodePresets(presets)), presets);
    EXPECT_EQ(decodePresets(presetJson(uuid)), std::vector<Preset>{presets[0]});

    const std::string complete = presetJson(uuid);
    for (const std::string key : {"id", "name", "look", "motion"}) {
        std::string renamed = complete;
        renamed.insert(renamed.find('"' + key + '"') + 1, "x");
        EXPECT_THAT(failure(decodePresets, renamed), StartsWith("entry 1: \"" + key + "\" is missing; "));
    }
    EXPECT_THAT(failure(decodePresets, presetJson(uuid, "null")),
                StartsWith(R"(entry 1: "look" holds null; a look)"));
    EXPECT_THAT(failure(decodePresets, presetJson(uuid, R"({"scale":1e39})")),
                StartsWith(R"(entry 1: "look": "scale" holds 1e39; a number)"));
    EXPECT_THAT(failure(decodePresets, presetJson(uuid, R"({"scale":1e999})")),
                StartsWith(R"(entry 1: "look": "scale" holds 1e999; a number)"));
    EXPECT_EQ(failure(decodePresets, R"([[]])"), "entry 1: a preset is a JSON object, this is an array");
}

TEST(DecodePresets, ChecksTheId)
{
    for (const std::string_view id :
         {"", "6F9619FF8B86D011B42D00C04FC964FF", "{6F9619FF-8B86-D011-B42D-00C04FC964FF}",
          "6F9619FF-8B86-D011-B42D-00C04FC964F", "6F9619FF-8B86-D011-B42D-00C04FC964FFF",
          "6F9619FG-8B86-D011-B42D-00C04FC964FF", "6F9619Fg-8B86-D011-B42D-00C04FC964FF",
          "6F9619FF-8B86-D011-B42D000C04FC964FF", "6F9619FF-8B86-D011-B42D-00C04FC964F-"})
        EXPECT_THAT(failure(decodePresets, presetJson(id)), StartsWith(R"(entry 1: "id" holds ")")) << id;
}

/// Looks from every corner: floats of any finite bit pattern, text of any characters, any colours.
class AnyLook
{
public:
    explicit AnyLook(std::uint64_t seed) : m_engine(seed) {}

    Look next()
    {
        Look look;
        look.pattern = static_cast<Pattern>(m_engine() % patternCount);
        look.palette = static_cast<std::int64_t>(m_engine() >> (1 + m_engine() % 63));
        look.dither = static_cast<Dither>(m_engine() % ditherCount);
        for (float Look::*const field :
             {&Look::pixel, &Look::levels, &Look::scale, &Look::warp, &Look::contrast, &Look::offset,
              &Look::grain, &Look::vignette, &Look::seed})
            look.*field = finiteFloat();
        look.speed = std::max(finiteFloat(), 0.01F);
        look.invert = m_engine() % 2 == 0;
        if (m_engine() % 2 == 0)
            look.imagePath = text(1);
        if (m_engine() % 2 == 0) {
            look.custom.emplace(m_engine() % 9);
            for (Color& color : *look.custom)
                color = static_cast<Color>(m_engine());
        }
        return look;
    }

    /// \param least the smallest code point
    std::string text(std::uint32_t least)
    {
        std::string result;
        for (std::uint64_t count = m_engine() % 20; count > 0; --count) {
            const char32_t point = codePoint(least);
            result += QString::fromUcs4(&point, 1).toStdString();
        }
        return result;
    }

    std::uint64_t draw() { return m_engine(); }

private:
    float finiteFloat()
    {
        float value = std::numeric_limits<float>::infinity();
        while (!std::isfinite(value))
            value = std::bit_cast<float>(static_cast<std::uint32_t>(m_engine()));
        return value;
    }

    char32_t codePoint(std::uint32_t least)
    {
        const std::array<std::uint32_t, 5> limits{0x20, 0x80, 0x800, 0xD800, 0x110000};
        for (;;) {
            const auto point = static_cast<char32_t>(m_engine() % limits.at(m_engine() % limits.size()));
            if (point >= least && (point < 0xD800 || point > 0xDFFF))
                return point;
        }
    }

    std::mt19937_64 m_engine;
};

TEST(RoundTrip, AnyLookComesBackWithTheSameBits)
{
    AnyLook any(20260101);
    for (int round = 0; round < 8'000; ++round) {
        const Look look = any.next();
        const std::string json = encodeLook(look);
        const Look back = decodeLook(json);
        ASSERT_EQ(back, look) << json;
        // The same text means the same bits, which == does not see in a zero.
        ASSERT_EQ(encodeLook(back), json);
        ASSERT_EQ(std::signbit(back.offset), std::signbit(look.offset));
    }
}

TEST(HostileInput, AnyDamageToGoodTextDecodesOrFailsCleanly)
{
    AnyLook any(7);
    int decoded = 0;
    for (int round = 0; round < 8'000; ++round) {
        std::string json = encodePresets({{uuid, any.text(0), any.next(), true}});
        for (std::uint64_t count = any.draw() % 3 + 1; count > 0; --count) {
            const std::size_t place = any.draw() % json.size();
            switch (any.draw() % 4) {
            case 0:
                json[place] = static_cast<char>(any.draw());
                break;
            case 1:
                json.erase(place, any.draw() % 5 + 1);
                break;
            case 2:
                json.insert(place, json.substr(any.draw() % json.size(), any.draw() % 9));
                break;
            default:
                json.resize(place);
                break;
            }
            json += json.empty() ? " " : "";
        }
        try {
            const std::vector<Preset> presets = decodePresets(json);
            ASSERT_EQ(decodePresets(encodePresets(presets)), presets) << json;
            ++decoded;
        } catch (const JsonError& error) {
            const std::string message = error.what();
            ASSERT_FALSE(message.empty());
            ASSERT_LT(message.size(), 500U) << message;
            ASSERT_TRUE(std::ranges::all_of(message, [](char byte) { return byte >= ' ' && byte <= '~'; }));
        }
    }
    EXPECT_GT(decoded, 100); // small damage to a digit or a letter leaves good text
}

} // namespace
} // namespace tessel
