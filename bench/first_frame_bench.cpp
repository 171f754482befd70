// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// How long the first frame of every pattern takes when the driver has never seen its shaders, and when it
// finds them in its disk cache.

#include "render/headless_context.h"
#include "render/still.h"
#include "render/stopwatch.h"

#include <QGuiApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

using namespace tessel;

namespace {

/// Milliseconds of the first frame of each pattern in a context of its own.
std::vector<double> firstFrames()
{
    const HeadlessContext context;
    FrameEncoder encoder;
    std::vector<double> times;
    Look look;
    // What the dither needs is not the pattern's doing.
    (void)renderStill(encoder, {.previous = look, .current = look, .width = 640, .height = 360});
    for (const Pattern pattern : allPatterns()) {
        look.pattern = pattern;
        Stopwatch watch;
        (void)renderStill(encoder, {.previous = look, .current = look, .width = 640, .height = 360});
        times.push_back(watch.lap());
    }
    return times;
}

} // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir cache;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("MESA_SHADER_CACHE_DIR", cache.path().toLocal8Bit());
    const QGuiApplication application(argc, argv);
    const std::vector<double> cold = firstFrames();
    const std::vector<double> warm = firstFrames();
    std::printf("first frames, milliseconds: cold (limit 150), with the driver's disk cache (limit 20)\n");
    for (const Pattern pattern : allPatterns()) {
        const auto index = static_cast<std::size_t>(pattern);
        if (pattern != Pattern::flow) // drawn before the clock started
            std::printf("  %-10s %6.1f %6.1f\n", title(pattern).data(), cold[index], warm[index]);
    }
    std::printf("  slowest    %6.1f %6.1f\n", *std::ranges::max_element(cold),
                *std::ranges::max_element(warm));
    return 0;
}
