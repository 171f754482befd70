// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <wayland-client.h>

// A parameter in it has a name that C++ keeps to itself.
#define namespace scope // NOLINT(cppcoreguidelines-macro-usage)
#include "wlr-layer-shell-unstable-v1-client.h"
#undef namespace

namespace tessel {

/// Surfaces may change their layer from version 2 on, and ask for the keyboard only when clicked from 4 on.
inline constexpr std::uint32_t newestLayers = 4;

} // namespace tessel
