// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace tessel {

/// Where the bus of screen readers is there but does not answer within a second, the application does
/// without, and says so on standard error; to ask it anything would hold up the start by a minute. To be
/// called before there is an application.
void avoidStuckAccessibility();

} // namespace tessel
