// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"
#include "model/oklab.h"
#include "render/still.h"

#include <cstddef>
#include <vector>

namespace tessel::cli {

/// What is seen of a look from afar.
struct Glance
{
    Pattern pattern = Pattern::flow;
    std::vector<Oklab> blocks; ///< the mean colour of each of 16 x 9
    double score = 0;          ///< how well it is made, 0 to 1
};

/// The glance at a look whose field is `field`. Its score is the product of four measures, each 0 to 1: no
/// fifth of the tones takes nearly all of the area; light and dark are spread so that a form is left from
/// afar; colour changes with them; and neighbouring cells belong together, where lines too fine for the cells
/// would be crumbs.
[[nodiscard]] Glance glanceAt(const Look& look, const Field& field);

/// Chooses up to `count` of the glances: the best first, then again and again the one whose score times its
/// distance from the nearest chosen is largest. The distance is the mean OKLab distance of the blocks, and
/// less between looks of one pattern. \return places in `glances`, in the order in which they were chosen
[[nodiscard]] std::vector<std::size_t> chooseBest(const std::vector<Glance>& glances, std::size_t count);

} // namespace tessel::cli
