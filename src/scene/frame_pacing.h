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
    float speed = 0;          ///< of the look
    bool animated = false;    ///< whether the look was applied with motion
    double transitionAge = 0; ///< seconds since the cross-fade began
    int ceiling = 0; ///< frames per second that can be carried, from a LoadGovernor or ProcessorBudget
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

/// Keeps what one view takes of the processor that draws it within a budget: dear frames come less often. It
/// goes by the average of 30 frames, and by what two such samples agree upon, so that a moment on a busy
/// machine changes nothing. A frame takes no less where frames are rarer, for more has changed since the
/// last: a rate that would be too dear by the frames of a higher one is so by its own.
class ProcessorBudget
{
public:
    /// The part of one core that frames may take.
    static constexpr double share = 0.13;

    /// Takes the CPU time of a frame, which is not negative.
    void addFrame(double milliseconds);

    /// Forgets what was taken, as another look is shown.
    void restart() { *this = {}; }

    /// Frames per second: the most of 30, 20, 15 and 10 that fit, or 10. It rises by one of them once that
    /// clearly fits, and now and then to try: a machine that was busy for long has made frames look dearer.
    [[nodiscard]] int ceiling() const;

private:
    void addSample(double milliseconds);
    void setLevel(std::size_t level);

    double m_sum = 0; ///< of the frames since the last sample
    int m_frames = 0; ///< their number
    std::optional<double> m_lastSample;
    int m_samples = 0; ///< since the ceiling became what it is
    std::size_t m_level = 0;
};

} // namespace tessel
