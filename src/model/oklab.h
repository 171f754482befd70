// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"

#include <algorithm>
#include <cmath>

namespace tessel {

/// A colour in OKLab (Björn Ottosson, 2020): lightness 0 (black) to 1 (white), a green to red, b blue to
/// yellow.
struct Oklab
{
    double lightness = 0;
    double a = 0;
    double b = 0;
};

/// One sRGB channel, 0 to 255, as linear light, 0 to 1.
inline double linearLight(Color channel)
{
    const double value = channel / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

/// The OKLab colour of a packed 0xRRGGBB.
inline Oklab toOklab(Color color)
{
    const double red = linearLight(color >> 16U & 0xFFU);
    const double green = linearLight(color >> 8U & 0xFFU);
    const double blue = linearLight(color & 0xFFU);
    const double l = std::cbrt(0.4122214708 * red + 0.5363325363 * green + 0.0514459929 * blue);
    const double m = std::cbrt(0.2119034982 * red + 0.6806995451 * green + 0.1073969566 * blue);
    const double s = std::cbrt(0.0883024619 * red + 0.2817188376 * green + 0.6299787005 * blue);
    return {.lightness = 0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s,
            .a = 1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
            .b = 0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
}

/// A channel of linear light as sRGB, 0 to 255; what a screen cannot show is brought to the nearest it can.
inline Color channelOf(double light)
{
    const double inside = std::clamp(light, 0.0, 1.0);
    const double value = inside <= 0.0031308 ? inside * 12.92 : 1.055 * std::pow(inside, 1 / 2.4) - 0.055;
    return static_cast<Color>(std::lround(value * 255));
}

/// The packed 0xRRGGBB of an OKLab colour.
inline Color toColor(const Oklab& color)
{
    const auto cube = [](double value) { return value * value * value; };
    const double l = cube(color.lightness + 0.3963377774 * color.a + 0.2158037573 * color.b);
    const double m = cube(color.lightness - 0.1055613458 * color.a - 0.0638541728 * color.b);
    const double s = cube(color.lightness - 0.0894841775 * color.a - 1.2914855480 * color.b);
    return channelOf(4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s) << 16U |
           channelOf(-1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s) << 8U |
           channelOf(-0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s);
}

/// Colourfulness: 0 for grey, about 0.3 for the purest colours of a screen.
inline double chroma(const Oklab& color)
{
    return std::hypot(color.a, color.b);
}

/// How far two colours look apart; about 0.02 is just noticeable.
inline double distance(const Oklab& one, const Oklab& other)
{
    return std::hypot(one.lightness - other.lightness, one.a - other.a, one.b - other.b);
}

/// The colour at `place` (0 to 1) on the way between two others.
inline Oklab mix(const Oklab& from, const Oklab& to, double place)
{
    return {.lightness = std::lerp(from.lightness, to.lightness, place),
            .a = std::lerp(from.a, to.a, place),
            .b = std::lerp(from.b, to.b, place)};
}

} // namespace tessel
