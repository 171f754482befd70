// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"

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
    std::string_view title;
    float lower = 0.0F;
    float upper = 1.0F;
    float initial = 0.0F;      ///< what it is reset to
    std::optional<float> step; ///< of which every value is a multiple; none where any value may be chosen
    SliderScale scale = SliderScale::linear;
};

/// All sliders, in the order in which people see them.
inline constexpr std::array<Slider, 10> sliders{{
    {&Look::scale, "Scale", 0.3F, 3.0F, 1.0F, std::nullopt},
    {&Look::warp, "Warp", 0.0F, 3.0F, 1.0F, std::nullopt},
    {&Look::speed, "Speed", 0.01F, 2.0F, 0.35F, std::nullopt, SliderScale::logarithmic},
    {&Look::seed, "Seed", 0.0F, 99.0F, 12.0F, 1.0F},
    {&Look::offset, "Shift", 0.0F, 1.0F, 0.0F, std::nullopt},
    {&Look::contrast, "Contrast", 0.5F, 3.0F, 1.15F, std::nullopt},
    {&Look::grain, "Grain", 0.0F, 0.3F, 0.04F, std::nullopt},
    {&Look::vignette, "Vignette", 0.0F, 1.0F, 0.25F, std::nullopt},
    {&Look::pixel, "Pixel", 2.0F, 40.0F, 8.0F, 1.0F},
    {&Look::levels, "Levels", 2.0F, 16.0F, 5.0F, 1.0F},
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
