// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "render/uniforms.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tessel {

/// What a view shows: the look being edited, the one on the desktop, or the handle's thumbnail of that.
enum class Source : std::uint8_t
{
    editor,
    desktop,
    thumb
};
inline constexpr std::size_t sourceCount = 3;

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

    std::array<Clock, sourceCount> m_clocks;
};

} // namespace tessel
