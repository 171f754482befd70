// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "scene/animation_clocks.h"

#include <algorithm>
#include <cmath>

namespace tessel {

namespace {

/// The thumbnail may draw once a second and must not lose its motion; elsewhere such a gap is a pause.
double longestStep(Source source)
{
    return source == Source::thumb ? 1.1 : 0.25;
}

} // namespace

void AnimationClocks::advance(Source source, double speed, double now)
{
    Clock& moved = clock(source);
    const double step = std::clamp(now - moved.lastAdvance, 0.0, longestStep(source));
    moved.lastAdvance = now;
    const double phase = moved.phase + step * speed;
    if (std::isfinite(phase))
        moved.phase = wrappedPhase(phase);
}

void AnimationClocks::setPhase(Source source, double phase)
{
    clock(source).phase = std::isfinite(phase) ? wrappedPhase(phase) : 0.0;
}

} // namespace tessel
