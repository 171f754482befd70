// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"

#include <QString>

#include <vector>

namespace tessel {

/// A look to begin with.
struct Bowl
{
    QString title;
    Look look;
};

/// In the order in which they are offered.
[[nodiscard]] std::vector<Bowl> bowls();

/// What is on the desktop in the picture of the handle at work.
[[nodiscard]] Look exampleLook();

} // namespace tessel
