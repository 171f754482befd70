// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cli/headless.h"

#include <functional>
#include <string>

namespace tessel::cli {

/// How a look is played into files.
struct AnimationOptions
{
    double seconds = 0;
    double framesPerSecond = 30;
    double fade = 0; ///< seconds at the end that fade into the beginning, so that it can be repeated
};

/// How many frames that makes: at least one.
[[nodiscard]] int frameCount(const AnimationOptions& options);

/// Draws the frames one after the other. A pattern comes round only after hours: where the end is to meet the
/// beginning, the last frames fade to what comes just before the first.
/// \param first its time is where the animation begins, with a fade by the length of the fade earlier than
/// the first frame; its look decides how fast it moves \param done given each picture in order, counted from
/// 0 \throws std::runtime_error for a size that the GPU cannot draw
void drawAnimation(Headless& headless, const Frame& first, const AnimationOptions& options,
                   const std::function<void(const Picture& picture, int index)>& done);

/// Makes the folder of frames.
/// \throws std::runtime_error where it cannot be made, or holds something already
void prepareFrameFolder(const std::string& folder);

/// The file of a frame: numbered from 0001, with as many digits as the last one needs.
[[nodiscard]] std::string frameFile(const std::string& folder, int index, int count);

} // namespace tessel::cli
