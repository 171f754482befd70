// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "render/picture.h"

#include <QImage>

#include <string>
#include <vector>

namespace tessel::cli {

/// A tile of a contact sheet.
struct Tile
{
    Picture picture;
    std::string label;
};

/// The tiles in rows, each with its label below, on a dark ground; as near to a 3:2 sheet as the count
/// allows.
[[nodiscard]] Picture layOutSheet(const std::vector<Tile>& tiles);

} // namespace tessel::cli
