// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"
#include "render/uniforms.h"

#include <CLI/CLI.hpp>

#include <string>

namespace tessel::cli {

/// A size as typed: WIDTHxHEIGHT in pixels.
struct PixelSize
{
    int width = 0;
    int height = 0;
};

/// The size as it is typed and named in files and messages.
[[nodiscard]] std::string sizeText(PixelSize size);

/// Reads WIDTHxHEIGHT; CLI11 finds this by its name and type.
/// \throws CLI::ValidationError for anything but two whole numbers above zero
bool lexical_cast(const std::string& text, PixelSize& size);

/// What is wrong with a text that is to be a number; nothing if it is one and not infinite. A range alone
/// lets "nan" pass.
[[nodiscard]] std::string checkFinite(const std::string& text);

/// What a frame is drawn of, as typed.
struct FrameOptions
{
    std::string look;
    std::string previous;
    PixelSize size{1920, 1080};
    double time = 0.0;
    float reference = desktopReference;
    float mix = 1.0F;
    Edge edge = Edge::left;
};

/// The frame of these options with the looks that they name; it refers to them.
[[nodiscard]] Frame makeFrame(const FrameOptions& options, const Look& previous, const Look& current);

/// Adds LOOK and the options of a frame, all but --size, which not every command leaves to a default.
void addFrameOptions(CLI::App& command, FrameOptions& options);

/// The options that other commands take too.
void addLookArgument(CLI::App& command, std::string& look);
CLI::Option* addSizeOption(CLI::App& command, PixelSize& size);
void addTimeOption(CLI::App& command, double& time);
void addReferenceOption(CLI::App& command, float& reference, const std::string& standard);

} // namespace tessel::cli
