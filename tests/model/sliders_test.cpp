// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/shuffle.h"
#include "model/sliders.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace tessel {
namespace {

bool isMultiple(float value, float step)
{
    return std::fmod(value, step) == 0.0F;
}

TEST(Sliders, AgreeWithTheLooksThereAre)
{
    const RandomSource random = seededSource(6);
    std::vector<Look> looks{Look()};
    for (int count = 0; count < 1000; ++count)
        looks.push_back(randomLook(random, std::nullopt));
    for (const Slider& slider : sliders) {
        EXPECT_EQ(slider.initial, Look().*slider.field) << slider.title;
        for (const Look& look : looks) {
            ASSERT_GE(look.*slider.field, slider.lower) << slider.title;
            ASSERT_LE(look.*slider.field, slider.upper) << slider.title;
            ASSERT_TRUE(!slider.step || isMultiple(look.*slider.field, *slider.step)) << slider.title;
        }
    }
}

TEST(Sliders, AreOneForEachField)
{
    std::set<std::string_view> titles;
    for (const Slider& slider : sliders) {
        EXPECT_EQ(&sliderOf(slider.field), &slider) << "no other one changes " << slider.title;
        EXPECT_TRUE(titles.insert(slider.title).second) << slider.title;
        EXPECT_LT(slider.lower, slider.upper) << slider.title;
        EXPECT_TRUE(slider.scale == SliderScale::linear || slider.lower > 0.0F) << slider.title;
        for (const float end : {slider.lower, slider.upper})
            EXPECT_TRUE(!slider.step || isMultiple(end, *slider.step))
                << slider.title << " cannot reach " << end;
    }
}

} // namespace
} // namespace tessel
