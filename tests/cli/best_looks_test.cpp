// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/best_looks.h"

#include <gmock/gmock.h>

namespace tessel::cli {
namespace {

using testing::ElementsAre;
using testing::Gt;
using testing::Lt;

/// One colour all over.
Glance plain(double lightness, double score, Pattern pattern)
{
    Glance glance;
    glance.pattern = pattern;
    glance.blocks.assign(std::size_t{16} * 9, {lightness, 0, 0});
    glance.score = score;
    return glance;
}

TEST(BestLooks, AreTheBestAndThenWhatDiffersMost)
{
    const std::vector<Glance> glances{
        plain(0.5, 0.8, Pattern::flow), plain(0.52, 0.79, Pattern::mesh), plain(0.9, 0.6, Pattern::flow),
        plain(0.2, 0.6, Pattern::halo), plain(0.0, 0.0, Pattern::orbit),
    };
    // The second best is nearly the best one's twin; another Flow, farther away than the Halo, is a Flow
    // still.
    EXPECT_THAT(chooseBest(glances, 3), ElementsAre(0, 3, 2));
    EXPECT_THAT(chooseBest(glances, 9), ElementsAre(0, 3, 2, 1, 4));
    EXPECT_THAT(chooseBest({}, 3), ElementsAre());
}

Field drawn(float (*tone)(int x, int y))
{
    Field field{{64, 36}, {}};
    for (int y = 0; y < 36; ++y)
        for (int x = 0; x < 64; ++x)
            field.tones.push_back(tone(x, y));
    return field;
}

TEST(BestLooks, ScoreFormAndNotCrumbsOrAnEmptyFrame)
{
    const Look look;
    const double form = glanceAt(look, drawn([](int x, int) { return static_cast<float>(x) / 63.0F; })).score;
    EXPECT_THAT(form, Gt(0.5));
    const auto crumbs = [](int x, int y) { return static_cast<float>((x * 7 + y * 13) % 5) / 4.0F; };
    EXPECT_THAT(glanceAt(look, drawn(crumbs)).score, Lt(0.05));
    const auto empty = [](int x, int) { return x < 2 ? 1.0F : 0.0F; };
    EXPECT_THAT(glanceAt(look, drawn(empty)).score, Lt(0.05));
    EXPECT_EQ(glanceAt(look, drawn([](int, int) { return 0.4F; })).score, 0);
}

} // namespace
} // namespace tessel::cli
