// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/look.h"

#include <gtest/gtest.h>

#include <limits>
#include <unordered_set>

namespace tessel {
namespace {

TEST(LookEnumerations, RawValuesAndTitlesAreThoseOfTheFileFormat)
{
    const std::array<const char*, patternCount> patterns{
        "Flow",  "Mesh",      "Plasma",   "Ripple", "Aurora", "Cells", "Topo",   "Image",   "Whorl",
        "Sonar", "Mosh",      "Weave",    "Silk",   "Metal",  "Beams", "Halo",   "Ribbon",  "Curtain",
        "Nova",  "Spotlight", "Exposure", "Planet", "Tiles",  "Orbit", "Dawn",   "Threads", "Fold",
        "Swell", "Smoke",     "Blobs",    "Gem",    "Fluted", "Water", "Spiral", "Dots",    "Neuro"};
    for (std::size_t raw = 0; raw < patterns.size(); ++raw) {
        EXPECT_EQ(title(patternFromRaw(static_cast<std::int64_t>(raw)).value()), patterns.at(raw));
        EXPECT_EQ(static_cast<std::size_t>(allPatterns().at(raw)), raw);
    }
    const std::array<const char*, ditherCount> dithers{"Smooth",   "Poster", "Bayer 4", "Bayer 8", "Noise",
                                                       "Halftone", "Lines",  "Diamond", "ASCII",   "Benday"};
    for (std::size_t raw = 0; raw < dithers.size(); ++raw) {
        EXPECT_EQ(title(ditherFromRaw(static_cast<std::int64_t>(raw)).value()), dithers.at(raw));
        EXPECT_EQ(static_cast<std::size_t>(allDithers().at(raw)), raw);
    }
    // The names of the cases, at the places where a slip in the long list would show.
    EXPECT_EQ(title(Pattern::image), "Image");
    EXPECT_EQ(title(Pattern::curtain), "Curtain");
    EXPECT_EQ(title(Pattern::dawn), "Dawn");
    EXPECT_EQ(title(Pattern::neuro), "Neuro");
    EXPECT_EQ(title(Dither::posterize), "Poster");
    EXPECT_EQ(title(Dither::benday), "Benday");
    EXPECT_EQ(title(Edge::left), "Left");
    EXPECT_EQ(title(Edge::right), "Right");
    EXPECT_EQ(static_cast<int>(Edge::right), 1);
}

TEST(LookEnumerations, OtherIntegersGiveNoValue)
{
    constexpr auto least = std::numeric_limits<std::int64_t>::min();
    constexpr auto greatest = std::numeric_limits<std::int64_t>::max();
    for (const std::int64_t raw : {std::int64_t{-1}, std::int64_t{36}, std::int64_t{256}, least, greatest}) {
        EXPECT_FALSE(patternFromRaw(raw)) << raw;
    }
    for (const std::int64_t raw : {std::int64_t{-1}, std::int64_t{10}, std::int64_t{256}, least, greatest}) {
        EXPECT_FALSE(ditherFromRaw(raw)) << raw;
    }
}

/// Looks that each differ from the default, and from each other, in one field alone.
std::vector<Look> looksWithOneChange()
{
    std::vector<Look> looks;
    const auto add = [&looks](auto change) { change(looks.emplace_back()); };
    add([](Look& look) { look.pattern = Pattern::mesh; });
    add([](Look& look) { look.palette = 1; });
    add([](Look& look) { look.dither = Dither::smooth; });
    add([](Look& look) { look.pixel = 3.0F; });
    add([](Look& look) { look.levels = 3.0F; });
    add([](Look& look) { look.scale = 3.0F; });
    add([](Look& look) { look.warp = 3.0F; });
    add([](Look& look) { look.speed = 3.0F; });
    add([](Look& look) { look.contrast = 3.0F; });
    add([](Look& look) { look.offset = 3.0F; });
    add([](Look& look) { look.grain = 3.0F; });
    add([](Look& look) { look.vignette = 3.0F; });
    add([](Look& look) { look.invert = true; });
    add([](Look& look) { look.seed = 3.0F; });
    add([](Look& look) { look.imagePath = ""; });
    add([](Look& look) { look.imagePath = "a"; });
    add([](Look& look) { look.custom.emplace(); });
    add([](Look& look) { look.custom = {0}; });
    add([](Look& look) { look.custom = {0, 0}; });
    add([](Look& look) { look.custom = {0, 1}; });
    add([](Look& look) { look.custom = {1, 0}; });
    return looks;
}

TEST(LookValue, EveryFieldCountsForEqualityAndHash)
{
    std::vector<Look> looks = looksWithOneChange();
    looks.emplace_back();
    std::unordered_set<std::size_t> hashes;
    for (std::size_t first = 0; first < looks.size(); ++first) {
        hashes.insert(std::hash<Look>{}(looks[first]));
        for (std::size_t second = 0; second < looks.size(); ++second) {
            EXPECT_EQ(looks[first] == looks[second], first == second) << first << " and " << second;
        }
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
    for (const Preset& each : presets) {
        hashes.insert(std::hash<Preset>{}(each));
    }
    EXPECT_EQ(hashes.size(), presets.size());
}

} // namespace
} // namespace tessel
