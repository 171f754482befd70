// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/pixel_rect.h"

#include <QString>

/// How frames get to whoever shows them in another process, as a desktop's own wallpaper. That one calls Open
/// with the name of a screen and gets a socket of packets, memory for the pixels (0xFFRRGGBB without gaps),
/// width and height; an error while nothing plays there, and Changed once something does. Each packet tells
/// what has changed: one PixelRect after the other, in the byte order of the machine. Any packet back says
/// that it is shown, and not before is the memory written again. The end of the socket is the end of the
/// frames.
namespace tessel::shown_frames {

inline const auto objectPath = QStringLiteral("/org/tesselbroth/TesselBroth/Frames");
inline const auto interfaceName = QStringLiteral("org.tesselbroth.Frames");
inline const auto open = QStringLiteral("Open");
inline const auto changed = QStringLiteral("Changed");

/// Where more has changed it is told as a whole.
inline constexpr std::size_t mostAreas = 300;

/// The longest side of a picture, in pixels.
inline constexpr int longestSide = 16384;

} // namespace tessel::shown_frames
