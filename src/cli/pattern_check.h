// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"
#include "render/still.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace tessel::cli {

/// What one field is drawn of.
struct FieldRequest
{
    int seed = 0;
    int width = 0; ///< of the target, in pixels; the cells are those of a pixel of 8 points
    int height = 0;
    double time = 0.0;
};
using FieldSource = std::function<Field(const FieldRequest&)>;

/// Half of what Cells, Flow and Tiles have, whose seeds have nothing in common: 0.99 to 1.00.
inline constexpr double pictureFloor = 0.5;

/// How a pattern behaves over a number of seeds. Shares and changes are of 1.
struct PatternMeasures
{
    std::array<double, 5> fifths{}; ///< share of the area in each fifth of the range, mean over the seeds
    double largestFifth = 0;        ///< the largest share of any fifth in any seed
    double leastDark = 1;           ///< the smallest and largest share of the lowest fifth in any seed
    double mostDark = 0;
    double leastBright = 1;     ///< the smallest share of the highest fifth in any seed
    double seedDistance = 1;    ///< mean difference of the two seeds that are nearest to each other
    double pictureDistance = 0; ///< mean of 1 less the correlation of two seeds' small pictures
    double frameChange = 0; ///< largest mean change from frame to frame, at 30 frames a second and speed 2
    double cellChange = 0;  ///< the same of the thousandth of the cells that change most
    double wrapChange = 0;  ///< mean change over the frame in which the clock wraps
    double seenToMove = 1;  ///< least share of cells that change by 0.02 in 3 seconds at speed 0.15
    double restless = 0;    ///< largest share of cells that change by 0.05 and back in a second at speed 0.5
    double jump = 0;        ///< largest change of any cell from frame to frame, 20 a second at speed 0.5
    double wrapJump = 0;    ///< the same over the frame in which the clock wraps
    double agreement = 1;   ///< least correlation between 192, 1512 and 3024 pixels, in blocks of the picture
    long nonFinite = 0;     ///< cells that are no number
    double nanoseconds = 0; ///< wall time per cell
};

/// The share of the cells in each fifth of the range of tones.
[[nodiscard]] std::array<double, 5> fifthsOf(const Field& field);

/// The mean tone of each of the 16 x 9 blocks of a picture.
[[nodiscard]] std::vector<double> blocksOf(const Field& field);

/// How alike two pictures are when they are shrunk to 16 x 9: the correlation of their tones, 1 for the same.
[[nodiscard]] double likeness(const Field& one, const Field& other);

/// Draws what is needed and measures it.
[[nodiscard]] PatternMeasures measure(const FieldSource& draw, int seeds);

/// What is wrong with a pattern that measures so, one sentence for each limit it breaks.
[[nodiscard]] std::vector<std::string> complaints(Pattern pattern, const PatternMeasures& measures);

/// The field of a pattern with its sliders in their first position and its tone untouched.
[[nodiscard]] FieldSource patternSource(FrameEncoder& encoder, Pattern pattern);

} // namespace tessel::cli
