// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>

namespace tessel {

class X11Connection;

/// The program whose window covers the desktop below all others, by the class that the window names; none if
/// nobody's does. Windows of our own do not count, nor small ones such as a clock drawn on the desktop.
[[nodiscard]] std::optional<std::string> desktopOwner(X11Connection& connection);

} // namespace tessel
