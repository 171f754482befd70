// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_line.h"
#include "cli/headless.h"
#include "cli/look_source.h"
#include "cli/options.h"
#include "cli/output.h"
#include "model/look_json.h"
#include "model/palette.h"
#include "render/still.h"
#include "render/stopwatch.h"

#include <iomanip>
#include <iostream>
#include <memory>
#include <stdexcept>

namespace tessel::cli {

namespace {

struct RenderOptions
{
    std::string look;
    std::string previous;
    PixelSize size{1920, 1080};
    std::string out;
    double time = 0.0;
    float reference = desktopReference;
    float mix = 1.0F;
    Edge edge = Edge::left;
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
    const Look look = readLook(options.look);
    const Look previous = options.previous.empty() ? look : readLook(options.previous);
    const std::string size = sizeText(options.size);
    const std::string out = options.out.empty() ? displayTitle(look) + ' ' + size + ".png" : options.out;
    refuseTerminal(out);

    Stopwatch watch;
    Headless headless;
    const double context = watch.lap();
    StillTiming timing;
    const std::optional<Picture> picture = renderStill(headless.encoder(),
                                                       {.previous = previous,
                                                        .current = look,
                                                        .width = options.size.width,
                                                        .height = options.size.height,
                                                        .mix = options.mix,
                                                        .time = options.time,
                                                        .reference = options.reference,
                                                        .edge = options.edge},
                                                       &timing);
    if (!picture)
        throw std::runtime_error("The " + size + " image could not be rendered. Try a smaller size.");
    headless.warnOfPhoto(look);
    headless.warnOfPhoto(previous);
    watch.lap();
    writePicture(*picture, encodeLook(look), out);
    if (options.timing)
        printTiming(context, timing, watch.lap());
}

} // namespace

void addRenderCommand(CLI::App& app)
{
    auto options = std::make_shared<RenderOptions>();
    CLI::App& command = *app.add_subcommand("render", "Draw a look into a PNG file");
    addLookArgument(command, options->look);
    command.add_option("--size", options->size, "Size in pixels [1920x1080]")->type_name("WxH");
    command.add_option("--out", options->out, "Where to write, - for standard output [TITLE WxH.png]")
        ->type_name("FILE");
    addTimeOption(command, options->time);
    addReferenceOption(command, options->reference);
    addFadeOptions(command, options->previous, options->mix);
    addEdgeOption(command, options->edge);
    command.add_flag("--timing", options->timing, "Print how many milliseconds each step took");
    command.callback([options] { render(*options); });
}

} // namespace tessel::cli
