// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <optional>

namespace tessel {

/// What a view shows: the look being edited, the one on the desktop, or the handle's thumbnail of that.
enum class Source : std::uint8_t
{
    editor,
    desktop,
    thumb
};

/// Whether the desktop environment asks for little motion.
enum class MotionPreference : std::uint8_t
{
    full,
    reduced
};

/// Animation phases stay below a thousand turns, so that the GPU's floats keep their precision.
inline constexpr double phaseLimit = 2000 * std::numbers::pi;

/// Seconds that a cross-fade lasts.
inline constexpr double transitionDuration = 1.1;

/// The most frames per second of a desktop that runs on battery.
inline constexpr int batteryFramesPerSecond = 15;

/// The animation phases, one per source and shared by all its views. A clock only runs while it is advanced;
/// a gap of any length moves it no further than its longest step.
class AnimationClocks
{
public:
    /// Moves a clock on, before a frame is drawn.
    /// \param speed phase per second; backwards below 0, and no motion if it is not finite
    /// \param now seconds of media time
    void advance(Source source, double speed, double now);

    /// 0 to `phaseLimit`.
    [[nodiscard]] double phase(Source source) const { return clock(source).phase; }

    /// Lets a clock go on from another one's phase or from a saved one, which may be any number: it is
    /// wrapped, and 0 if it is not finite.
    void setPhase(Source source, double phase);

private:
    struct Clock
    {
        double phase = 0;
        double lastAdvance = 0; ///< long ago: the first step is one after a pause
    };

    Clock& clock(Source source) { return m_clocks.at(static_cast<std::size_t>(source)); }
    [[nodiscard]] const Clock& clock(Source source) const
    {
        return m_clocks.at(static_cast<std::size_t>(source));
    }

    std::array<Clock, 3> m_clocks;
};

/// The part of the current look in a cross-fade, 0 to 1; it is there at once under reduced motion.
/// \param age seconds since the cross-fade began
[[nodiscard]] float transitionMix(double age, MotionPreference preference);

/// What decides about the pace of the editor's preview.
struct EditorPace
{
    float speed = 0; ///< of the look
    bool frozen = false;
    double transitionAge = 0; ///< seconds since the cross-fade began
};

/// What decides about the pace of a desktop.
struct DesktopPace
{
    float speed = 0;             ///< of the look
    bool animated = false;       ///< whether the look was applied with motion
    double transitionAge = 0;    ///< seconds since the cross-fade began
    int ceiling = 0;             ///< frames per second that the GPU can carry, from a LoadGovernor
    std::optional<int> cap = {}; ///< the same for other reasons, such as `batteryFramesPerSecond`
};

enum class ThumbState : std::uint8_t
{
    hidden, ///< its window cannot be seen
    resting,
    inUse ///< the pointer is over the handle, or the handle is not in its resting mode
};

/// What decides about the pace of the handle's thumbnail.
struct ThumbPace
{
    float speed = 0; ///< of the look
    MotionPreference preference = MotionPreference::full;
    ThumbState state = ThumbState::resting;
};

/// The speed for AnimationClocks::advance().
[[nodiscard]] double clockSpeed(const EditorPace& pace);
[[nodiscard]] double clockSpeed(const DesktopPace& pace);
[[nodiscard]] double clockSpeed(const ThumbPace& pace);

/// How many frames per second a view should draw: as few as its motion allows.
[[nodiscard]] int framesPerSecond(const EditorPace& pace);
[[nodiscard]] int framesPerSecond(const DesktopPace& pace);
[[nodiscard]] int framesPerSecond(const ThumbPace& pace);

/// Lowers the ceiling of one view's frame rate while its frames take long on the GPU, and raises it again
/// only once they have become clearly faster.
class LoadGovernor
{
public:
    /// Counts a frame; the first and then every 30th is to be measured.
    /// \return whether this one is
    [[nodiscard]] bool countFrame();

    /// Takes the GPU time of a measured frame and moves the ceiling by one level at most. A broken timer's
    /// values, negative or not finite, are left out.
    void addSample(double milliseconds);

    /// Frames per second: 30, 20, 15 or 10.
    [[nodiscard]] int ceiling() const;

    /// The smoothed GPU time of a frame; it starts at 0.
    [[nodiscard]] double gpuMilliseconds() const { return m_gpuMilliseconds; }

private:
    double m_gpuMilliseconds = 0;
    int m_sampleCountdown = 0;
    std::size_t m_level = 0;
};

} // namespace tessel
