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
