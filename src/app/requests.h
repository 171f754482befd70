// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/actions.h"
#include "model/store.h"
#include "platform/running_instance.h"

#include <functional>

namespace tessel {

/// What other programs can ask for: all actions, "set-look" with the JSON of a look, and "set-motion" with
/// whether the wallpaper is animated. Whatever is wrong is refused with the reason, and nothing is changed.
/// \param store must outlive the answers
/// \param perform does an action
[[nodiscard]] InstanceAnswers requestAnswers(Store& store, std::function<void(Action)> perform);

} // namespace tessel
