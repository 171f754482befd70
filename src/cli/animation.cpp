// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/animation.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <stdexcept>

namespace tessel::cli {

namespace {

/// One colour channel of two pixels, mixed in 256 steps.
std::uint32_t mixedChannel(std::uint32_t from, std::uint32_t to, std::uint32_t share, int shift)
{
    const std::uint32_t a = from >> shift & 0xFFU;
    const std::uint32_t b = to >> shift & 0xFFU;
    return (a * (256 - share) + b * share + 128) >> 8 << shift;
}

/// \param share how much of the other picture, 0 to 1
void mixInto(Picture& picture, const Picture& other, double share)
{
    const auto steps = static_cast<std::uint32_t>(std::lround(256 * share));
    for (std::size_t i = 0; i < picture.pixelCount(); ++i) {
        const std::uint32_t from = picture.pixels[i];
        const std::uint32_t to = other.pixels[i];
        picture.pixels[i] = 0xFF000000U | mixedChannel(from, to, steps, 16) |
                            mixedChannel(from, to, steps, 8) | mixedChannel(from, to, steps, 0);
    }
}

} // namespace

int frameCount(const AnimationOptions& options)
{
    return std::max(1, static_cast<int>(std::lround(options.seconds * options.framesPerSecond)));
}

void drawAnimation(Headless& headless, const Frame& first, const AnimationOptions& options,
                   const std::function<void(const Picture&, int)>& done)
{
    const int count = frameCount(options);
    const int faded =
        std::min(count - 1, static_cast<int>(std::lround(options.fade * options.framesPerSecond)));
    const double step = first.current.speed / options.framesPerSecond;
    const auto draw = [&](int place) {
        Frame frame = first;
        frame.time += step * place;
        return headless.draw(frame);
    };
    for (int index = 0; index < count; ++index) {
        Picture picture = draw(faded + index);
        const int left = count - index; // to where it begins again
        if (left <= faded)
            mixInto(picture, draw(faded - left), 1.0 - static_cast<double>(left) / (faded + 1));
        done(picture, index);
    }
}

void prepareFrameFolder(const std::string& folder)
{
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error || !std::filesystem::is_directory(folder, error))
        throw std::runtime_error(folder + ": the folder for the frames cannot be made");
    if (!std::filesystem::is_empty(folder, error) || error)
        throw std::runtime_error(folder + ": is not empty; frames are written into a folder of their own");
}

std::string frameFile(const std::string& folder, int index, int count)
{
    const std::string number = std::to_string(index + 1);
    const std::size_t digits = std::max<std::size_t>(4, std::to_string(count).size());
    return (std::filesystem::path(folder) / (std::string(digits - number.size(), '0') + number + ".png"))
        .string();
}

} // namespace tessel::cli
