// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace tessel {

/// The background that sway draws by a program of its own. Before version 1.10 whatever comes later on a
/// layer stands below what was there, so ours would be hidden by it; whenever sway is given another
/// background it starts that program anew, which stands below ours then.

/// Has sway show a picture below ours, which stays when we are gone.
/// \param file empty for black
void setSwayBackground(const QString& monitor, const QString& file);

} // namespace tessel
