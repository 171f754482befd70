// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_line.h"
#include "cli/look_source.h"
#include "cli/options.h"
#include "model/look_json.h"
#include "model/palette.h"
#include "render/photo.h"
#include "render/uniforms.h"

#include <nlohmann/json.hpp>

#include <array>
#include <charconv>
#include <iostream>
#include <memory>

namespace tessel::cli {

namespace {

using Json = nlohmann::ordered_json;

struct InspectOptions
{
    FrameOptions frame;
    bool json = false;
};

/// The double that prints as the shortest text of the float, so that 0.35 does not become 0.3499999940395355.
double shortest(float value)
{
    std::array<char, 32> text{};
    const auto written = std::to_chars(text.data(), text.data() + text.size(), value);
    double same = 0;
    std::from_chars(text.data(), written.ptr, same);
    return same;
}

PhotoSize photoSize(const Look& look)
{
    if (look.pattern != Pattern::image || !look.imagePath)
        return {};
    try {
        const QImage photo = readPhoto(*look.imagePath, longestPhotoSide());
        return {static_cast<float>(photo.width()), static_cast<float>(photo.height()), true};
    } catch (const PhotoError& error) {
        std::cerr << "tessel: the photo " << *look.imagePath << " cannot be shown: " << error.what() << '\n';
        return {};
    }
}

/// Columns and rows of the field pass; null where there is none because a cell is a single pixel.
Json fieldJson(PixelSize size, float cell)
{
    if (cell <= 1.0F)
        return nullptr;
    const GridSize grid = fieldSize(size.width, size.height, cell);
    return {grid.width, grid.height};
}

Json describe(const FrameOptions& options)
{
    const Look look = readLook(options.look);
    const Look previous = options.previous.empty() ? look : readLook(options.previous);
    const Frame frame = makeFrame(options, previous, look);
    LookBlockCache cache;
    const UniformBlock block =
        makeUniforms(frame, frame.mix < 1.0F ? photoSize(previous) : PhotoSize(), photoSize(look), cache);
    const float cell = cellSize(block, Slot::current);
    const float previousCell = cellSize(block, Slot::previous);
    const Stops stops = resolveStops(look);
    Json uniforms = Json::array();
    for (const float value : block)
        uniforms.push_back(shortest(value));
    return {{"look", Json::parse(encodeLook(look))},
            {"title", displayTitle(look)},
            {"palette", paletteName(look)},
            {"stops", std::vector<Color>(stops.slot.begin(), stops.slot.begin() + stops.count)},
            {"cell", shortest(cell)},
            {"previousCell", shortest(previousCell)},
            {"field", fieldJson(options.size, cell)},
            {"previousField", fieldJson(options.size, previousCell)},
            {"uniforms", uniforms}};
}

std::string fieldText(const Json& field)
{
    if (field.is_null())
        return "none, the pattern is drawn at every pixel";
    return sizeText({field[0], field[1]});
}

void printText(const Json& description)
{
    std::cout << "title           " << description["title"].get<std::string>() << '\n'
              << "palette         " << description["palette"].get<std::string>() << '\n'
              << "stops          ";
    for (const Color color : description["stops"])
        std::cout << ' ' << hexText(color);
    std::cout << "\ncell            " << description["cell"] << " px\nprevious cell   "
              << description["previousCell"] << " px\nfield           " << fieldText(description["field"])
              << "\nprevious field  " << fieldText(description["previousField"]) << '\n';
}

void inspect(const InspectOptions& options)
{
    const Json description = describe(options.frame);
    if (options.json)
        std::cout << description.dump() << '\n';
    else
        printText(description);
}

} // namespace

void addInspectCommand(CLI::App& app)
{
    auto options = std::make_shared<InspectOptions>();
    CLI::App& command = *app.add_subcommand("inspect", "Tell how a look is understood and drawn at a size");
    addFrameOptions(command, options->frame);
    addSizeOption(command, options->frame.size)->required();
    command.add_flag("--json", options->json, "As JSON, with the 70 numbers the shaders are given");
    command.callback([options] { inspect(*options); });
}

} // namespace tessel::cli
