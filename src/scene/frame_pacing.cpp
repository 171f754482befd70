// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "scene/frame_pacing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace tessel {

namespace {

/// Floats, as the speed of a look is: 0.06F lies below 0.06.
int framesPerSecondForSpeed(float speed)
{
    if (speed >= 0.6F)
        return 30;
    if (speed >= 0.2F)
        return 20;
    if (speed >= 0.06F)
        return 15;
    if (speed >= 0.02F)
        return 10;
    return 5;
}

constexpr int framesPerSample = 30;
constexpr double smoothing = 0.5;

/// A ceiling and the milliseconds beyond which the next one below or above it takes over. They leave a gap:
/// a frame time at which a level is entered never is one at which it is left for where it came from.
struct LoadLevel
{
    int framesPerSecond;
    double fallsAbove;
    double risesBelow;
};

/// Seconds at a ceiling after which a ProcessorBudget tries the next higher one.
constexpr int patience = 300;

/// The part of the budget by which a higher rate is sure to fit.
constexpr double sureShare = 0.9;

constexpr double never = std::numeric_limits<double>::infinity();
constexpr std::array<LoadLevel, 4> loadLevels{{
    {.framesPerSecond = 30, .fallsAbove = 26, .risesBelow = -never},
    {.framesPerSecond = 20, .fallsAbove = 40, .risesBelow = 16},
    {.framesPerSecond = 15, .fallsAbove = 55, .risesBelow = 30},
    {.framesPerSecond = 10, .fallsAbove = never, .risesBelow = 45},
}};

/// The part of one core that frames of so many CPU milliseconds take at the rate of a level.
double shareAt(std::size_t level, double milliseconds)
{
    return milliseconds / 1000.0 * loadLevels.at(level).framesPerSecond;
}

} // namespace

float transitionMix(double age, MotionPreference preference)
{
    if (preference == MotionPreference::reduced)
        return 1.0F;
    return static_cast<float>(std::clamp(age / transitionDuration, 0.0, 1.0));
}

double clockSpeed(const EditorPace& pace)
{
    return pace.frozen ? 0.0F : pace.speed;
}

double clockSpeed(const DesktopPace& pace)
{
    return pace.animated ? pace.speed : 0.0F;
}

double clockSpeed(const ThumbPace& pace)
{
    return pace.preference == MotionPreference::reduced ? 0.0F : std::min(pace.speed, 0.2F);
}

int framesPerSecond(const EditorPace& pace)
{
    // A little longer than the cross-fade, so that its last frame is drawn without delay.
    const bool changing = pace.transitionAge <= 1.2;
    return !pace.frozen || changing ? 60 : 6;
}

int framesPerSecond(const DesktopPace& pace)
{
    static constexpr int leastInCrossFade = 20;
    int wanted = framesPerSecondForSpeed(pace.speed);
    wanted = std::min(wanted, pace.cap.value_or(wanted));
    if (pace.transitionAge < transitionDuration)
        wanted = std::max(wanted, leastInCrossFade);
    return std::min(wanted, pace.ceiling);
}

int framesPerSecond(const ThumbPace& pace)
{
    return pace.state == ThumbState::inUse ? 12 : 1;
}

bool LoadGovernor::countFrame()
{
    if (--m_sampleCountdown >= 1)
        return false;
    m_sampleCountdown = framesPerSample;
    return true;
}

void LoadGovernor::addSample(double milliseconds)
{
    if (!std::isfinite(milliseconds) || milliseconds < 0)
        return;
    m_gpuMilliseconds += (milliseconds - m_gpuMilliseconds) * smoothing;
    const LoadLevel& level = loadLevels.at(m_level);
    if (m_gpuMilliseconds > level.fallsAbove)
        ++m_level;
    else if (m_gpuMilliseconds < level.risesBelow)
        --m_level;
}

int LoadGovernor::ceiling() const
{
    return loadLevels.at(m_level).framesPerSecond;
}

void ProcessorBudget::addFrame(double milliseconds)
{
    m_sum += milliseconds;
    if (++m_frames == framesPerSample)
        addSample(std::exchange(m_sum, 0) / std::exchange(m_frames, 0));
}

void ProcessorBudget::addSample(double milliseconds)
{
    ++m_samples;
    const double last = std::exchange(m_lastSample, milliseconds).value_or(milliseconds);
    if (m_samples < 2)
        return;
    const auto [lower, higher] = std::minmax(last, milliseconds);
    std::size_t fitting = m_level;
    while (fitting + 1 < loadLevels.size() && shareAt(fitting, lower) > share)
        ++fitting;
    const bool isLowered = m_level > 0;
    const bool isSure = isLowered && shareAt(m_level - 1, higher) <= sureShare * share;
    const bool isToTry = isLowered && m_samples * framesPerSample >= patience * ceiling();
    if (fitting > m_level)
        setLevel(fitting);
    else if (isSure || isToTry)
        setLevel(m_level - 1);
}

void ProcessorBudget::setLevel(std::size_t level)
{
    m_level = level;
    m_samples = 0;
}

int ProcessorBudget::ceiling() const
{
    return loadLevels.at(m_level).framesPerSecond;
}

} // namespace tessel
