// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/look_json.h"

#include <gtest/gtest.h>

#include <unordered_set>

namespace tessel {
namespace {

TEST(LookEnumerations, FilesOfBeforeKeepTheirMeaning)
{
    for (const auto& [raw, name] :
         {std::pair{0, "Flow"}, {7, "Image"}, {11, "Weave"}, {12, "Silk"}, {35, "Neuro"}})
        EXPECT_EQ(title(patternFromRaw(raw).value()), name);
    for (const auto& [raw, name] :
         {std::pair{0, "Smooth"}, {1, "Poster"}, {3, "Bayer 8"}, {8, "ASCII"}, {9, "Benday"}})
        EXPECT_EQ(title(ditherFromRaw(raw).value()), name);
    EXPECT_EQ(static_cast<int>(Edge::right), 1);
}

/// Looks that each differ from the default, and from each other, in one field alone.
std::vector<Look> looksWithOneChange()
{
    return decodeLooks(
        R"([{"pattern":1},{"palette":1},{"dither":0},{"pixel":3},{"levels":3},{"scale":3},{"warp":3},{"speed":3},)"
        R"({"contrast":3},{"offset":3},{"grain":3},{"vignette":3},{"invert":true},{"seed":3},{"imagePath":""},)"
        R"({"imagePath":"a"},{"custom":[]},{"custom":[0]},{"custom":[0,0]},{"custom":[0,1]},{"custom":[1,0]}])");
}

TEST(LookValue, EveryFieldCountsForEqualityAndHash)
{
    std::vector<Look> looks = looksWithOneChange();
    looks.emplace_back();
    std::unordered_set<std::size_t> hashes;
    for (std::size_t first = 0; first < looks.size(); ++first) {
        hashes.insert(std::hash<Look>{}(looks[first]));
        for (std::size_t second = 0; second < looks.size(); ++second)
            EXPECT_EQ(looks[first] == looks[second], first == second) << first << " and " << second;
    }
    EXPECT_EQ(hashes.size(), looks.size());
}

TEST(LookValue, SignOfZeroDoesNotCount)
{
    const std::array<float Look::*, 10> floats{&Look::pixel,    &Look::levels,   &Look::scale,  &Look::warp,
                                               &Look::speed,    &Look::contrast, &Look::offset, &Look::grain,
                                               &Look::vignette, &Look::seed};
    for (float Look::*const field : floats) {
        Look positive;
        Look negative;
        positive.*field = 0.0F;
        negative.*field = -0.0F;
        EXPECT_EQ(positive, negative);
        EXPECT_EQ(std::hash<Look>{}(positive), std::hash<Look>{}(negative));
    }
}

TEST(PresetValue, AllFourFieldsCountForEqualityAndHash)
{
    const Preset preset{"6F9619FF-8B86-D011-B42D-00C04FC964FF", "Evening", {}, false};
    std::vector<Preset> presets(5, preset);
    presets[1].id.back() = 'E';
    presets[2].name = "Morning";
    presets[3].look.seed = 13.0F;
    presets[4].motion = true;

    const std::unordered_set<Preset> distinct(presets.begin(), presets.end());
    EXPECT_EQ(distinct.size(), presets.size());
    EXPECT_TRUE(distinct.contains(Preset(preset)));
    std::unordered_set<std::size_t> hashes;
    for (const Preset& each : presets)
        hashes.insert(std::hash<Preset>{}(each));
    EXPECT_EQ(hashes.size(), presets.size());
}

} // namespace
} // namespace tessel
