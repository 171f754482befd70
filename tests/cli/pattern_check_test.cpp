// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/pattern_check.h"
#include "model/sliders.h"
#include "support/drawing_test.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <ostream>

namespace tessel {

void PrintTo(Pattern pattern, std::ostream* out)
{
    *out << title(pattern);
}

namespace cli {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class EveryPattern : public DrawingTest, public testing::WithParamInterface<Pattern>
{
};

TEST_P(EveryPattern, KeepsItsLimits)
{
    const PatternMeasures measures = measure(patternSource(encoder, GetParam()), 16);
    EXPECT_THAT(complaints(GetParam(), measures), IsEmpty());
}

/// The corners of the sliders' ranges: nowhere is the picture blank, of one tone, or no picture at all.
TEST_P(EveryPattern, ShowsSomethingAtEverySliderLimit)
{
    const Slider& scales = sliderOf(&Look::scale);
    const Slider& warps = sliderOf(&Look::warp);
    for (const float scale : {scales.lower, scales.initial, scales.upper}) {
        for (const float warp : {warps.lower, warps.initial, warps.upper}) {
            for (const auto& [width, height] : {std::pair{192, 192}, {660, 1434}, {1920, 1080}}) {
                Look look;
                look.pattern = GetParam();
                look.scale = scale;
                look.warp = warp;
                look.contrast = 1.0F;
                look.vignette = look.grain = 0.0F;
                const auto field = renderField(
                    encoder,
                    {.previous = look, .current = look, .width = width, .height = height, .time = 7.0});
                ASSERT_TRUE(field);
                EXPECT_TRUE(
                    std::ranges::all_of(field->tones, [](float tone) { return tone >= 0 && tone <= 1; }));
                const auto [least, most] = std::ranges::minmax(field->tones);
                EXPECT_GT(most - least, 0.25F) << "scale " << scale << ", warp " << warp << ", " << width;
            }
        }
    }
}

/// The preview of a look with coarse cells has larger cells in proportion, but shows what the desktop will.
TEST_P(EveryPattern, HasOneCompositionInEveryView)
{
    Look look;
    look.pattern = GetParam();
    look.pixel = 16.0F;
    look.vignette = look.grain = 0.0F;
    const auto drawFor = [&](float reference) {
        return renderField(
            encoder,
            {.previous = look, .current = look, .width = 1512, .height = 851, .reference = reference});
    };
    const auto desktop = drawFor(1512.0F);
    const auto preview = drawFor(900.0F);
    ASSERT_TRUE(desktop && preview);
    EXPECT_GT(likeness(*desktop, *preview), 0.85);
}

TEST_P(EveryPattern, MirrorsOrNotWithTheHandle)
{
    Look look;
    look.pattern = GetParam();
    look.vignette = look.grain = 0.0F;
    const auto drawAt = [&](Edge edge) {
        return renderField(encoder,
                           {.previous = look, .current = look, .width = 1280, .height = 720, .edge = edge});
    };
    const auto left = drawAt(Edge::left);
    const auto right = drawAt(Edge::right);
    double same = 0;
    double mirrored = 0;
    const auto columns = static_cast<std::size_t>(left->size.width);
    for (std::size_t i = 0; i < left->tones.size(); ++i) {
        const std::size_t column = i % columns;
        same += std::abs(left->tones[i] - right->tones[i]);
        mirrored += std::abs(left->tones[i] - right->tones[i - column + (columns - 1 - column)]);
    }
    // The last column of cells may be cut, so that a mirrored field is not the same to the last bit.
    EXPECT_LT(std::min(same, mirrored) / static_cast<double>(left->tones.size()), 0.02);
}

std::string patternName(const testing::TestParamInfo<Pattern>& info)
{
    return std::string(title(info.param));
}

INSTANTIATE_TEST_SUITE_P(Patterns, EveryPattern, testing::ValuesIn(allPatterns()), patternName);

/// Stands in for a pattern: a ramp that drifts with the seed and the time, and keeps every limit.
Field goodField(const FieldRequest& request)
{
    Field field{{189, 107}, {}};
    for (int i = 0; i < 189 * 107; ++i) {
        const double x = (i % 189) / 189.0 + 0.37 * request.seed + 0.05 * std::sin(request.time);
        field.tones.push_back(static_cast<float>(std::abs(2.0 * (x - std::floor(x)) - 1.0)));
    }
    return field;
}

std::vector<std::string> complaintsAbout(const std::function<void(Field&, const FieldRequest&)>& spoil,
                                         Pattern pattern = Pattern::flow)
{
    const FieldSource source = [&](const FieldRequest& request) {
        Field field = goodField(request);
        spoil(field, request);
        return field;
    };
    return complaints(pattern, measure(source, 3));
}

/// The same of every tone alone.
std::vector<std::string>
complaintsAboutTones(const std::function<double(double tone, const FieldRequest&)>& spoil,
                     Pattern pattern = Pattern::flow)
{
    return complaintsAbout(
        [&](Field& field, const FieldRequest& request) {
            for (float& tone : field.tones)
                tone = static_cast<float>(spoil(tone, request));
        },
        pattern);
}

TEST(PatternCheck, PassesAGoodPatternAndNoticesEveryFault)
{
    EXPECT_THAT(complaintsAbout([](Field&, const FieldRequest&) {}), IsEmpty());

    EXPECT_THAT(complaintsAbout([](Field& field, const FieldRequest&) {
                    field.tones[5] = std::numeric_limits<float>::quiet_NaN();
                }),
                Contains(HasSubstr("cells that are no number is 3")));
    EXPECT_THAT(complaintsAbout([](Field& field, const FieldRequest& request) {
                    if (request.width == 192)
                        std::ranges::reverse(field.tones);
                }),
                ElementsAre(HasSubstr("agreement between resolutions")));
    EXPECT_THAT(complaintsAbout([](Field& field, const FieldRequest& request) {
                    std::fill_n(field.tones.begin(), 100, std::fmod(request.time, 0.1) < 0.05 ? 0.0F : 1.0F);
                }),
                Contains(HasSubstr("change of the liveliest cells")));
    EXPECT_THAT(complaintsAboutTones([](double tone, const FieldRequest& request) {
                    return 0.5 + 0.5 * (tone - 0.5) + 0.2 * std::sin(9.0 * request.time);
                }),
                Contains(HasSubstr("mean change from frame to frame")));
    EXPECT_THAT(complaintsAboutTones([](double tone, const FieldRequest& request) {
                    return request.time > 6000 ? 0.9 * tone : tone;
                }),
                ElementsAre(HasSubstr("the change where the clock wraps"),
                            HasSubstr("liveliest cell where the clock wraps")));
    // One cell alone.
    EXPECT_THAT(complaintsAbout([](Field& field, const FieldRequest& request) {
                    field.tones[5] = request.time > 6000 ? 0.9F : 0.1F;
                }),
                ElementsAre(HasSubstr("liveliest cell where the clock wraps")));
    EXPECT_THAT(complaintsAbout([](Field& field, const FieldRequest& request) {
                    field.tones[5] = request.time > 21.2 && request.time < 21.3 ? 0.9F : 0.1F;
                }),
                ElementsAre(HasSubstr("liveliest cell in a 20th of a second")));
    EXPECT_THAT(complaintsAboutTones([](double tone, const FieldRequest& request) {
                    return 0.1 + 0.8 * tone + 0.04 * std::sin(14.0 * request.time);
                }),
                Contains(HasSubstr("come and go within a second")));
    EXPECT_THAT(complaintsAbout([](Field& field, const FieldRequest& request) {
                    field = goodField({.seed = request.seed});
                }),
                ElementsAre(HasSubstr("nothing seems to move"), HasSubstr("change to the eye")));
    EXPECT_THAT(complaintsAbout([](Field& field, const FieldRequest& request) {
                    field = goodField({.time = request.time});
                }),
                ElementsAre(HasSubstr("two nearest seeds"), HasSubstr("one composition")));
    // One ramp that is lifted by another amount for every seed: far apart in tone, and yet one picture.
    EXPECT_THAT(complaintsAbout([](Field& field, const FieldRequest& request) {
                    field = goodField({.time = request.time});
                    for (float& tone : field.tones)
                        tone = std::pow(tone, 1.0F + 0.6F * static_cast<float>(request.seed));
                }),
                ElementsAre(HasSubstr("one composition")));
}

TEST(PatternCheck, HoldsLightOnDarkToItsOwnTones)
{
    const auto darken = [](double share) {
        return
            [share](double tone, const FieldRequest&) { return std::max(0.0, (tone - share) / (1 - share)); };
    };
    EXPECT_THAT(complaintsAboutTones(darken(0.5F), Pattern::halo), IsEmpty());
    EXPECT_THAT(complaintsAboutTones(darken(0.2F), Pattern::halo),
                ElementsAre(HasSubstr("least share of the darkest")));
    EXPECT_THAT(complaintsAboutTones(darken(0.8F), Pattern::halo),
                Contains(HasSubstr("largest share of the darkest")));
    EXPECT_THAT(complaintsAboutTones(darken(0.8F)), ElementsAre(HasSubstr("largest share of one fifth")));
    EXPECT_THAT(complaintsAboutTones([](double tone, const FieldRequest&) { return 0.75 * tone; }),
                ElementsAre(HasSubstr("least share of the brightest")));
}

} // namespace
} // namespace cli
} // namespace tessel
