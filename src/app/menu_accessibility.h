// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace tessel {

/// Shows screen readers menus that belong to no window, such as one beside the status icon: among what the
/// application has, Qt leaves out all that pops up. To be called before there is an application.
void showMenusToScreenReaders();

} // namespace tessel
