// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"

#include <string>

namespace tessel::cli {

/// The look that a LOOK argument stands for: JSON text, a JSON file, - for standard input, a PNG made by
/// this program, or the default look when it is empty. It is read once, so that a pipe will do.
/// \throws std::runtime_error naming the argument and what is wrong with it
[[nodiscard]] Look readLook(const std::string& argument);

/// The look in a PNG made by this program.
/// \throws std::runtime_error naming the file and what is wrong with it
[[nodiscard]] Look readPngLook(const std::string& fileName);

} // namespace tessel::cli
