// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace tessel {

/// Whether the desktop environment asks for little motion.
enum class MotionPreference : std::uint8_t
{
    full,
    reduced
};

/// Seconds that a cross-fade lasts.
inline constexpr double transitionDuration = 1.1;

/// The most frames per second of a desktop that runs on battery.
inline constexpr int batteryFramesPerSecond = 15;

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
    std::optional<int> cap = {}; ///< the same for other reasons, outside of cross-fades, such as the battery
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
