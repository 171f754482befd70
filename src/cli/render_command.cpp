// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/animation.h"
#include "cli/command_line.h"
#include "cli/headless.h"
#include "cli/look_source.h"
#include "cli/options.h"
#include "cli/output.h"
#include "cli/progress.h"
#include "model/look_json.h"
#include "model/palette.h"
#include "render/png_file.h"
#include "render/stopwatch.h"

#include <iomanip>
#include <iostream>
#include <memory>

namespace tessel::cli {

namespace {

struct RenderOptions
{
    FrameOptions frame;
    std::string out;
    bool timing = false;
    AnimationOptions animation; ///< of no seconds for a single picture
};

/// The longest animation, which is some thousand files at usual rates.
constexpr double longestSeconds = 600;
constexpr double fastest = 240;

void printTiming(double context, const StillTiming& still, double encode)
{
    std::cerr << std::fixed << std::setprecision(1) << "context " << context << " ms, shaders "
              << still.shaders << " ms, passes " << still.passes << " ms, read-back " << still.readBack
              << " ms, encode " << encode << " ms\n";
}

/// The name of the output: as typed, or after the look.
std::string outName(const RenderOptions& options, const Look& look, const char* ending)
{
    return options.out.empty() ? displayTitle(look) + ' ' + sizeText(options.frame.size) + ending
                               : options.out;
}

void renderAnimation(const RenderOptions& options, const Look& look, const Look& previous)
{
    const std::string folder = outName(options, look, "");
    Headless headless;
    prepareFrameFolder(folder);
    const int count = frameCount(options.animation);
    Progress progress("Rendering", count);
    drawAnimation(headless, makeFrame(options.frame, previous, look), options.animation,
                  [&](const Picture& picture, int index) {
                      writePng(picture, encodeLook(look), frameFile(folder, index, count));
                      progress.report(index + 1);
                  });
    progress.finish();
    std::cout << folder << '\n';
    headless.warnOfPhoto(look);
}

void renderPicture(const RenderOptions& options, const Look& look, const Look& previous)
{
    const std::string out = outName(options, look, ".png");
    refuseTerminal(out);

    Stopwatch watch;
    Headless headless;
    const double context = watch.lap();
    StillTiming timing;
    Progress progress("Rendering", 2);
    const Picture picture = headless.draw(makeFrame(options.frame, previous, look), &timing);
    progress.report(1);
    watch.lap();
    writePicture(picture, encodeLook(look), out);
    const double encode = watch.lap();
    progress.finish();
    headless.warnOfPhoto(look);
    if (previous.imagePath != look.imagePath)
        headless.warnOfPhoto(previous);
    if (options.timing)
        printTiming(context, timing, encode);
}

void render(const RenderOptions& options)
{
    const Look look = readLook(options.frame.look);
    const Look previous = options.frame.previous.empty() ? look : readLook(options.frame.previous);
    if (options.animation.seconds > 0)
        renderAnimation(options, look, previous);
    else
        renderPicture(options, look, previous);
}

void addAnimationOptions(CLI::App& command, RenderOptions& options)
{
    AnimationOptions& animation = options.animation;
    CLI::Option* animate = command
                               .add_option("--animate", animation.seconds,
                                           "Draw that many seconds as numbered PNG files, for a video tool")
                               ->check(checkFinite)
                               ->check(CLI::Range(0.01, longestSeconds))
                               ->excludes(command.get_option("--timing"))
                               ->type_name("SECONDS");
    command.add_option("--fps", animation.framesPerSecond, "Frames a second [30]")
        ->check(checkFinite)
        ->check(CLI::Range(0.1, fastest))
        ->needs(animate)
        ->type_name("N");
    command
        .add_option("--loop-fade", animation.fade,
                    "Fade the last seconds into the beginning, so that the end meets it: no pattern comes "
                    "round by itself in less than hours [0]")
        ->check(checkFinite)
        ->check(CLI::Range(0.0, longestSeconds))
        ->needs(animate)
        ->type_name("SECONDS");
}

} // namespace

void addRenderCommand(CLI::App& app)
{
    auto options = std::make_shared<RenderOptions>();
    CLI::App& command = *app.add_subcommand("render", "Draw a look into a PNG file");
    addFrameOptions(command, options->frame);
    addSizeOption(command, options->frame.size)->description("Size in pixels [1920x1080]");
    command
        .add_option("--out", options->out,
                    "Where to write, - for standard output [TITLE WxH.png]; with --animate a new folder "
                    "[TITLE WxH]")
        ->type_name("FILE");
    command.add_flag("--timing", options->timing, "Print how many milliseconds each step took");
    addAnimationOptions(command, *options);
    command.callback([options] { render(*options); });
}

} // namespace tessel::cli
