// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"

#include <QtGlobal>

#include <array>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string_view>

namespace tessel {

/// How a slider's position stands for its value.
enum class SliderScale : std::uint8_t
{
    linear,
    logarithmic ///< equal ways multiply by equal factors; only above zero
};

/// A field of a look that a slider changes. The record itself takes any value; these are the ones to choose
/// from.
struct Slider
{
    float Look::*field = nullptr;
    const char* title = nullptr; ///< in English
    float lower = 0.0F;
    float upper = 1.0F;
    float initial = 0.0F;      ///< what it is reset to
    std::optional<float> step; ///< of which every value is a multiple; none where any value may be chosen
    SliderScale scale = SliderScale::linear;
};

/// All sliders, in the order in which people see them.
inline constexpr std::array<Slider, 10> sliders{{
    //: how large a pattern is
    {&Look::scale, QT_TRANSLATE_NOOP("Sliders", "Scale"), 0.3F, 3.0F, 1.0F, std::nullopt},
    //: how much a pattern is bent
    {&Look::warp, QT_TRANSLATE_NOOP("Sliders", "Warp"), 0.0F, 3.0F, 1.0F, std::nullopt},
    //: of an animation
    {&Look::speed, QT_TRANSLATE_NOOP("Sliders", "Speed"), 0.01F, 2.0F, 0.35F, std::nullopt,
     SliderScale::logarithmic},
    //: the number that a pattern's chance begins with
    {&Look::seed, QT_TRANSLATE_NOOP("Sliders", "Seed"), 0.0F, 99.0F, 12.0F, 1.0F},
    //: by how much the colours are moved along the palette
    {&Look::offset, QT_TRANSLATE_NOOP("Sliders", "Shift"), 0.0F, 1.0F, 0.0F, std::nullopt},
    {&Look::contrast, QT_TRANSLATE_NOOP("Sliders", "Contrast"), 0.5F, 3.0F, 1.15F, std::nullopt},
    //: as that of a film
    {&Look::grain, QT_TRANSLATE_NOOP("Sliders", "Grain"), 0.0F, 0.3F, 0.04F, std::nullopt},
    //: the darkening towards the corners
    {&Look::vignette, QT_TRANSLATE_NOOP("Sliders", "Vignette"), 0.0F, 1.0F, 0.25F, std::nullopt},
    //: the size of the pixels that a wallpaper is made of
    {&Look::pixel, QT_TRANSLATE_NOOP("Sliders", "Pixel"), 2.0F, 40.0F, 8.0F, 1.0F},
    //: how many tones there are
    {&Look::levels, QT_TRANSLATE_NOOP("Sliders", "Levels"), 2.0F, 16.0F, 5.0F, 1.0F},
}};

/// The slider of a field, which must have one.
[[nodiscard]] constexpr const Slider& sliderOf(float Look::*field)
{
    for (const Slider& slider : sliders)
        if (slider.field == field)
            return slider;
    throw std::logic_error("there is no slider for this field");
}

} // namespace tessel
