// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tool.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <sstream>

namespace tessel {
namespace {

using testing::AllOf;
using testing::Ge;
using testing::HasSubstr;
using testing::Le;
using testing::StartsWith;

class TextCommands : public Tool
{
};

TEST_F(TextCommands, ListsWhatThereIs)
{
    const auto patterns = run({"list", "patterns", "--json"}).json();
    EXPECT_EQ(patterns.size(), 36U);
    EXPECT_EQ(patterns[35], nlohmann::json({{"index", 35}, {"name", "Neuro"}}));
    const auto dithers = run({"list", "dithers", "--json"}).json();
    EXPECT_EQ(dithers.size(), 10U);
    EXPECT_EQ(dithers[1]["name"], "Poster");
    const auto palettes = run({"list", "palettes", "--json"}).json();
    EXPECT_EQ(palettes.size(), 222U);
    EXPECT_EQ(palettes[112]["name"], "Tromsø");
    EXPECT_EQ(palettes[112]["group"], "Curtain");
    EXPECT_EQ(palettes[8]["hex"], nlohmann::json({0x1B1B1F, 0xE9E4D8}));
    EXPECT_EQ(run({"list", "--json", "palettes"}).json(), palettes);
    EXPECT_THAT(run({"list", "palettes"}).out, HasSubstr("  0  Ember 0B0503 5A0E02 E0440E FFB347 FFF1C9\n"));
}

TEST_F(TextCommands, ShufflesTheSameLooksForTheSameSeed)
{
    const Outcome first = run({"shuffle", "--count", "50", "--random-seed", "7", "--keep-image", "/a b.jpg"});
    EXPECT_EQ(first.exitCode, 0);
    EXPECT_EQ(first.out,
              run({"shuffle", "--count", "50", "--random-seed", "7", "--keep-image", "/a b.jpg"}).out);
    EXPECT_NE(first.out,
              run({"shuffle", "--count", "50", "--random-seed", "8", "--keep-image", "/a b.jpg"}).out);
    std::istringstream lines(first.out);
    int count = 0;
    for (std::string line; std::getline(lines, line); ++count) {
        const auto look = nlohmann::json::parse(line);
        EXPECT_EQ(look["imagePath"], "/a b.jpg");
        EXPECT_NE(look["pattern"], 7);
    }
    EXPECT_EQ(count, 50);
    EXPECT_NE(run({"shuffle"}).out, run({"shuffle"}).out);
}

TEST_F(TextCommands, InspectsALookAsItIsDrawn)
{
    const auto seen = run({"inspect", R"({"pattern":15,"dither":8,"pixel":1,"custom":[255],"warp":0.35})",
                           "--size", "3024x1964", "--previous", R"({"dither":0})", "--mix", "0.25", "--time",
                           "1.5", "--edge", "right", "--json"})
                          .json();
    EXPECT_EQ(seen["title"], "Halo Custom");
    EXPECT_EQ(seen["palette"], "Custom");
    EXPECT_EQ(seen["stops"], nlohmann::json({255, 255}));
    EXPECT_EQ(seen["cell"], 18);
    EXPECT_EQ(seen["field"], nlohmann::json({168, 110}));
    EXPECT_EQ(seen["previousCell"], 1);
    EXPECT_TRUE(seen["previousField"].is_null());
    EXPECT_EQ(seen["look"]["warp"], 0.35);
    ASSERT_EQ(seen["uniforms"].size(), 70U);
    EXPECT_EQ(seen["uniforms"][5], 1);
    for (const char* far : {"1e300", "-1e300"})
        EXPECT_THAT(
            run({"inspect", "--size", "9x9", "--time", far, "--json"}).json()["uniforms"][2].get<double>(),
            AllOf(Ge(0.0), Le(6283.2)))
            << "phases come round";
}

TEST_F(TextCommands, TakesALookFromTextFileInputOrPicture)
{
    const std::string look = R"({"pattern":2,"seed":77})";
    const std::string file = write("look.json", look);
    ASSERT_EQ(run({"render", file, "--size", "64x64", "--out", "a.png"}).exitCode, 0);
    const auto lookOf = [&](const std::string& argument, const std::string& input = {}) {
        return run({"inspect", argument, "--size", "64x64", "--json"}, input).json()["look"];
    };
    EXPECT_EQ(lookOf(look)["seed"], 77);
    EXPECT_EQ(lookOf(look), lookOf(file));
    EXPECT_EQ(lookOf(look), lookOf("-", look));
    EXPECT_EQ(lookOf(look), lookOf("a.png"));
    std::ifstream png(path("a.png"), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(png), {}};
    EXPECT_EQ(lookOf(look), lookOf("/dev/stdin", bytes)) << "what can be read only once";
    EXPECT_EQ(lookOf(look), lookOf("-", bytes));
    EXPECT_EQ(run({"inspect", "--size", "64x64", "--json"}).json()["look"]["seed"], 12);
    EXPECT_THAT(run({"read", "a.png"}).out, StartsWith(R"({"pattern":2,"palette":0,"dither":3,"pixel":8,)"));
}

} // namespace
} // namespace tessel
