// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "scene/animation_clocks.h"
#include "scene/frame_pacing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <tuple>
#include <vector>

namespace tessel {
namespace {

using testing::ElementsAre;

constexpr double longUptime = 1e6;
constexpr double tenMinutes = 600;
constexpr double longAgo = 1e3;

/// How far one step moves the clock of `source`.
double stepOf(AnimationClocks& clocks, Source source, double speed, double now)
{
    const double before = clocks.phase(source);
    clocks.advance(source, speed, now);
    return clocks.phase(source) - before;
}

TEST(AnimationClocks, AGapOfAnyLengthMovesThemByTheLongestStepOnly)
{
    AnimationClocks clocks;
    EXPECT_DOUBLE_EQ(stepOf(clocks, Source::desktop, 0.5, longUptime), 0.125) << "not by the uptime";
    EXPECT_NEAR(stepOf(clocks, Source::desktop, 0.5, longUptime + 0.1), 0.05, 1e-9);
    EXPECT_NEAR(stepOf(clocks, Source::desktop, 0.5, longUptime + tenMinutes), 0.125, 1e-9);

    EXPECT_DOUBLE_EQ(stepOf(clocks, Source::editor, 1, longUptime), 0.25);
    EXPECT_DOUBLE_EQ(stepOf(clocks, Source::thumb, 0.2, longUptime), 0.22);
    EXPECT_NEAR(stepOf(clocks, Source::thumb, 0.2, longUptime + 1), 0.2, 1e-9) << "1 frame a second";
    EXPECT_EQ(stepOf(clocks, Source::thumb, 0.2, longUptime - 5), 0) << "time that goes back";
}

TEST(AnimationClocks, ViewsOfOneSourceShareAPhase)
{
    AnimationClocks clocks;
    clocks.advance(Source::desktop, 1, longUptime);
    clocks.advance(Source::desktop, 1, longUptime + 0.05);
    clocks.advance(Source::desktop, 1, longUptime + 0.1);
    EXPECT_NEAR(clocks.phase(Source::desktop), 0.35, 1e-9);
    EXPECT_EQ(clocks.phase(Source::editor), 0);
}

TEST(AnimationClocks, WrapAfterAThousandTurnsInBothDirections)
{
    AnimationClocks clocks;
    clocks.setPhase(Source::editor, phaseLimit - 0.1);
    clocks.advance(Source::editor, 1, longUptime);
    EXPECT_NEAR(clocks.phase(Source::editor), 0.15, 1e-9);
    clocks.advance(Source::editor, -1, longUptime + 0.25);
    EXPECT_NEAR(clocks.phase(Source::editor), phaseLimit - 0.1, 1e-9);
}

TEST(AnimationClocks, SurviveSpeedsAndSavedPhasesThatMakeNoSense)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    AnimationClocks clocks;
    clocks.setPhase(Source::desktop, 7);
    for (const double speed : {std::nan(""), infinity, -infinity}) {
        clocks.advance(Source::desktop, speed, longUptime);
        EXPECT_EQ(clocks.phase(Source::desktop), 7);
    }
    clocks.advance(Source::desktop, std::numeric_limits<float>::lowest(), longUptime + 1);
    EXPECT_GE(clocks.phase(Source::desktop), 0);
    EXPECT_LE(clocks.phase(Source::desktop), phaseLimit);

    clocks.setPhase(Source::desktop, std::nan(""));
    EXPECT_EQ(clocks.phase(Source::desktop), 0);
    clocks.setPhase(Source::desktop, 3 * phaseLimit + 1);
    EXPECT_NEAR(clocks.phase(Source::desktop), 1, 1e-9);
    clocks.setPhase(Source::desktop, -1);
    EXPECT_NEAR(clocks.phase(Source::desktop), phaseLimit - 1, 1e-9);
}

TEST(ClockSpeed, StandsStillWhereMotionIsNotWanted)
{
    EXPECT_EQ(clockSpeed(EditorPace{.speed = 0.5F}), 0.5);
    EXPECT_EQ(clockSpeed(EditorPace{.speed = 0.5F, .frozen = true}), 0);
    EXPECT_EQ(clockSpeed(DesktopPace{.speed = 0.5F, .animated = true}), 0.5);
    EXPECT_EQ(clockSpeed(DesktopPace{.speed = 0.5F, .animated = false}), 0);
    EXPECT_EQ(clockSpeed(ThumbPace{.speed = 0.125F}), 0.125);
    EXPECT_FLOAT_EQ(static_cast<float>(clockSpeed(ThumbPace{.speed = 0.5F})), 0.2F);
    EXPECT_EQ(clockSpeed(ThumbPace{.speed = 0.5F, .preference = MotionPreference::reduced}), 0);
}

TEST(TransitionMix, GoesFromThePreviousToTheCurrentLook)
{
    EXPECT_EQ(transitionMix(-1, MotionPreference::full), 0.0F);
    EXPECT_EQ(transitionMix(0, MotionPreference::full), 0.0F);
    EXPECT_FLOAT_EQ(transitionMix(0.55, MotionPreference::full), 0.5F);
    EXPECT_EQ(transitionMix(1.1, MotionPreference::full), 1.0F);
    EXPECT_EQ(transitionMix(longAgo, MotionPreference::full), 1.0F);
    EXPECT_EQ(transitionMix(0, MotionPreference::reduced), 1.0F);
}

TEST(FramesPerSecond, EditorIsSlowOnlyWhenNothingChanges)
{
    EXPECT_EQ(framesPerSecond(EditorPace{.frozen = false, .transitionAge = longAgo}), 60);
    EXPECT_EQ(framesPerSecond(EditorPace{.frozen = true, .transitionAge = 1.2}), 60);
    EXPECT_EQ(framesPerSecond(EditorPace{.frozen = true, .transitionAge = 1.201}), 6);
}

TEST(FramesPerSecond, ThumbnailIsFastOnlyInUse)
{
    EXPECT_EQ(framesPerSecond(ThumbPace{.state = ThumbState::hidden}), 1);
    EXPECT_EQ(framesPerSecond(ThumbPace{.state = ThumbState::resting}), 1);
    EXPECT_EQ(framesPerSecond(ThumbPace{.state = ThumbState::inUse}), 12);
}

int desktopRate(float speed, int ceiling, double transitionAge = longAgo, std::optional<int> cap = {})
{
    return framesPerSecond(
        DesktopPace{.speed = speed, .transitionAge = transitionAge, .ceiling = ceiling, .cap = cap});
}

TEST(FramesPerSecond, DesktopFollowsTheSpeedUpToItsCeiling)
{
    for (const auto& [speed, atIt, belowIt] :
         {std::tuple{0.6F, 30, 20}, {0.2F, 20, 15}, {0.06F, 15, 10}, {0.02F, 10, 5}}) {
        SCOPED_TRACE(speed);
        EXPECT_EQ(desktopRate(speed, 30), atIt);
        EXPECT_EQ(desktopRate(std::nextafter(speed, 0.0F), 30), belowIt);
        EXPECT_EQ(desktopRate(speed, 10), 10);
    }
    EXPECT_EQ(desktopRate(100, 30), 30);
    EXPECT_EQ(desktopRate(0.01F, 10), 5);
    EXPECT_EQ(desktopRate(-1, 30), 5);
    EXPECT_EQ(desktopRate(std::nanf(""), 30), 5);
}

TEST(FramesPerSecond, DesktopCrossFadesAtTwentyUnlessTheCeilingForbids)
{
    EXPECT_EQ(desktopRate(0.01F, 30, 0), 20);
    EXPECT_EQ(desktopRate(0.01F, 20, 1.099), 20);
    EXPECT_EQ(desktopRate(0.01F, 20, 1.1), 5);
    EXPECT_EQ(desktopRate(0.01F, 15, 0.5), 15);
    EXPECT_EQ(desktopRate(1, 10, 0.5), 10);
    EXPECT_EQ(desktopRate(1, 30, 0.5), 30) << "raised, never lowered";
}

TEST(FramesPerSecond, DesktopKeepsBelowTheCapOnBattery)
{
    EXPECT_EQ(desktopRate(1, 30, longAgo, batteryFramesPerSecond), 15);
    EXPECT_EQ(desktopRate(0.01F, 30, 0.5, batteryFramesPerSecond), 20) << "a cross-fade is short";
    EXPECT_EQ(desktopRate(1, 15, 0.5, batteryFramesPerSecond), 15) << "but the GPU cannot do more";
    EXPECT_EQ(desktopRate(1, 10, longAgo, batteryFramesPerSecond), 10);
    EXPECT_EQ(desktopRate(0.03F, 30, longAgo, batteryFramesPerSecond), 10);
}

TEST(LoadGovernor, MeasuresTheFirstAndThenEveryThirtiethFrame)
{
    LoadGovernor governor;
    std::vector<int> measured;
    for (int frame = 1; frame <= 70; ++frame)
        if (governor.countFrame())
            measured.push_back(frame);
    EXPECT_THAT(measured, ElementsAre(1, 31, 61));
}

/// The sample that makes the smoothed value exactly `milliseconds`.
double sampleFor(const LoadGovernor& governor, double milliseconds)
{
    return 2 * milliseconds - governor.gpuMilliseconds();
}

/// A governor brought to `ceiling` from above.
LoadGovernor governorAt(int ceiling)
{
    LoadGovernor governor;
    while (governor.ceiling() > ceiling)
        governor.addSample(sampleFor(governor, 64));
    return governor;
}

TEST(LoadGovernor, ChangesTheCeilingBeyondTheBordersOnly)
{
    constexpr double up = 1.0 / 64;
    constexpr double down = -up;
    for (const auto& [from, milliseconds, direction, to] : {std::tuple{30, 26, up, 20},
                                                            {20, 40, up, 15},
                                                            {20, 16, down, 30},
                                                            {15, 55, up, 10},
                                                            {15, 30, down, 20},
                                                            {10, 45, down, 15}}) {
        SCOPED_TRACE(testing::Message() << from << " at " << milliseconds);
        LoadGovernor governor = governorAt(from);
        // A sample cannot be negative: come closer from any height without crossing the border.
        while (sampleFor(governor, milliseconds) < 0)
            governor.addSample(milliseconds);
        governor.addSample(sampleFor(governor, milliseconds));
        EXPECT_EQ(governor.gpuMilliseconds(), milliseconds);
        EXPECT_EQ(governor.ceiling(), from);
        governor.addSample(sampleFor(governor, milliseconds + direction));
        EXPECT_EQ(governor.ceiling(), to);
    }
}

/// The ceilings while `samples` are taken, without repetitions.
std::vector<int> ceilings(LoadGovernor& governor, const std::vector<double>& samples)
{
    std::vector<int> passed{governor.ceiling()};
    for (const double sample : samples) {
        governor.addSample(sample);
        if (governor.ceiling() != passed.back())
            passed.push_back(governor.ceiling());
    }
    return passed;
}

TEST(LoadGovernor, DoesNotOscillateUnderAnySteadyLoadWithNoise)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> noise(-4.9, 4.9);
    for (int load = 5; load <= 80; ++load) {
        SCOPED_TRACE(load);
        for (const int start : {30, 10}) {
            LoadGovernor governor = governorAt(start);
            const std::vector<double> approach(20, load);
            ceilings(governor, approach);
            std::vector<double> samples(1000);
            for (double& sample : samples)
                sample = load + noise(random);
            EXPECT_LE(ceilings(governor, samples).size(), 2U) << "one change at most, near a border";
        }
    }
}

TEST(LoadGovernor, LeavesOutWhatABrokenTimerSays)
{
    LoadGovernor governor;
    governor.addSample(20);
    for (const double sample : {std::nan(""), -1e9, std::numeric_limits<double>::infinity()})
        governor.addSample(sample);
    EXPECT_EQ(governor.gpuMilliseconds(), 10);
    EXPECT_EQ(governor.ceiling(), 30);
}

/// A look without a GPU whose frames take longer where they are rarer, as smooth ones do, and a clock.
struct Played
{
    /// Plays for some seconds, at least one frame.
    /// \param busy how many times as long frames take
    /// \return the rates, without repetitions
    std::vector<int> play(double seconds, double busy = 1, double deviation = 0)
    {
        std::uniform_real_distribution<double> noise(1 - deviation, 1 + deviation);
        std::vector<int> rates;
        for (const double end = now + seconds; rates.empty() || now < end;) {
            const int rate = desktopRate(speed, budget.ceiling());
            if (rates.empty() || rate != rates.back())
                rates.push_back(rate);
            const double frame = milliseconds * std::pow(20.0 / rate, growth) * busy * noise(random);
            budget.addFrame(frame);
            spent += frame / 1000;
            now += 1.0 / rate;
        }
        return rates;
    }

    double milliseconds; ///< of a frame at 20 a second
    double growth = 0.5; ///< 0 where frames do not depend on the rate, 1 where a second always takes as much
    float speed = 0.35F;
    ProcessorBudget budget = {};
    double now = 0;
    double spent = 0; ///< CPU seconds
    std::mt19937 random{11};
};

constexpr double settling = 15;
constexpr double anHour = 3600;

TEST(ProcessorBudget, LeavesWhatFitsAlone)
{
    EXPECT_THAT((Played{.milliseconds = 6.3}.play(anHour)), ElementsAre(20));
    EXPECT_THAT((Played{.milliseconds = 4.2, .growth = 0, .speed = 1}.play(anHour)), ElementsAre(30));
    EXPECT_THAT((Played{.milliseconds = 40, .speed = 0.01F}.play(anHour)), ElementsAre(5));
}

TEST(ProcessorBudget, FindsTheHighestRateThatFits)
{
    for (const auto& [milliseconds, growth, fitting] : {std::tuple{6.7, 0.0, 15},
                                                        {7.4, 0.5, 15},
                                                        {9.0, 0.0, 10},
                                                        {9.0, 0.5, 10},
                                                        {12.8, 0.0, 10},
                                                        {50.0, 0.5, 10}}) {
        SCOPED_TRACE(milliseconds);
        Played look{.milliseconds = milliseconds, .growth = growth};
        look.play(settling);
        EXPECT_EQ(desktopRate(look.speed, look.budget.ceiling()), fitting);
    }
}

TEST(ProcessorBudget, KeepsAnHourWithinItAndHardlyEverChangesTheRate)
{
    for (double milliseconds = 2; milliseconds < 10.4; milliseconds += 0.1) {
        for (const double growth : {0.0, 0.3}) {
            SCOPED_TRACE(testing::Message() << milliseconds << ", " << growth);
            Played look{.milliseconds = milliseconds, .growth = growth, .speed = 1};
            look.play(settling);
            const double before = look.spent;
            EXPECT_LE(look.play(anHour, 1, 0.3).size(), 1 + 2 * anHour / 300) << "to try, now and then";
            EXPECT_LE(look.spent - before, 1.02 * ProcessorBudget::share * anHour);
        }
    }
}

TEST(ProcessorBudget, ForgetsABusyMachine)
{
    Played look{.milliseconds = 5.8};
    look.play(settling);
    EXPECT_THAT(look.play(1.4, 3), ElementsAre(20)) << "a moment";
    EXPECT_THAT(look.play(settling), ElementsAre(20));
    look.budget.addFrame(300);
    EXPECT_THAT(look.play(settling), ElementsAre(20)) << "one frame";
    EXPECT_THAT(look.play(600, 1.8), testing::Contains(10));
    look.play(600);
    EXPECT_THAT(look.play(anHour), ElementsAre(20));
}

TEST(ProcessorBudget, BeginsAnewWithAnotherLook)
{
    Played look{.milliseconds = 20};
    look.play(settling);
    look.budget.restart();
    look.milliseconds = 4;
    EXPECT_THAT(look.play(anHour), ElementsAre(20));
}

} // namespace
} // namespace tessel
