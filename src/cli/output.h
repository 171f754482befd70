// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "render/picture.h"

#include <optional>
#include <string>

namespace tessel::cli {

/// Refuses to write a picture onto a terminal; asked before any work is done.
/// \throws std::runtime_error
void refuseTerminal(const std::string& out);

/// Writes a PNG to a file, whose name is then printed, or to standard output when `out` is -.
/// \throws std::runtime_error naming the target and why it could not be written
void writePicture(const Picture& picture, const std::optional<std::string>& lookJson, const std::string& out);

} // namespace tessel::cli
