// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"
#include "render/geometry.h"

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

/// The options that several commands share.
void addLookArgument(CLI::App& command, std::string& look);
void addTimeOption(CLI::App& command, double& time);
void addReferenceOption(CLI::App& command, float& reference);
void addFadeOptions(CLI::App& command, std::string& previous, float& mix);
void addEdgeOption(CLI::App& command, Edge& edge);

} // namespace tessel::cli
