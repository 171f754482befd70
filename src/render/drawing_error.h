// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <stdexcept>

namespace tessel {

/// A look that the driver refuses to draw. The message names the pattern or dither and the first line of what
/// the driver said. Other looks can still be drawn.
class DrawingError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace tessel
