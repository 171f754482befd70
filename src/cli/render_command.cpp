// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_line.h"
#include "cli/headless.h"
#include "cli/look_source.h"
#include "cli/options.h"
#include "cli/output.h"
#include "cli/progress.h"
#include "model/look_json.h"
#include "model/palette.h"
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
};

void printTiming(double context, const StillTiming& still, double encode)
{
    std::cerr << std::fixed << std::setprecision(1) << "context " << context << " ms, shaders "
              << still.shaders << " ms, passes " << still.passes << " ms, read-back " << still.readBack
              << " ms, encode " << encode << " ms\n";
}

void render(const RenderOptions& options)
{
    const Look look = readLook(options.frame.look);
    const Look previous = options.frame.previous.empty() ? look : readLook(options.frame.previous);
    const std::string out =
        options.out.empty() ? displayTitle(look) + ' ' + sizeText(options.frame.size) + ".png" : options.out;
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

} // namespace

void addRenderCommand(CLI::App& app)
{
    auto options = std::make_shared<RenderOptions>();
    CLI::App& command = *app.add_subcommand("render", "Draw a look into a PNG file");
    addFrameOptions(command, options->frame);
    addSizeOption(command, options->frame.size)->description("Size in pixels [1920x1080]");
    command.add_option("--out", options->out, "Where to write, - for standard output [TITLE WxH.png]")
        ->type_name("FILE");
    command.add_flag("--timing", options->timing, "Print how many milliseconds each step took");
    command.callback([options] { render(*options); });
}

} // namespace tessel::cli
