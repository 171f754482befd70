// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_line.h"
#include "cli/look_source.h"
#include "cli/options.h"
#include "cli/running_application.h"
#include "model/look_json.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

namespace tessel::cli {

namespace {

struct SetOptions
{
    std::string look;
    bool still = false;
    bool animated = false;
};

/// The application may run in another folder.
Look withWholePath(Look look)
{
    if (look.imagePath && !look.imagePath->empty())
        look.imagePath = std::filesystem::absolute(*look.imagePath).string();
    return look;
}

void set(const SetOptions& options)
{
    if (options.look.empty() && !options.still && !options.animated)
        throw CLI::ValidationError("set", "a LOOK, --still or --animated is expected");
    std::optional<Look> look;
    if (!options.look.empty())
        look = withWholePath(readLook(options.look));
    RunningApplication application;
    if (look)
        application.perform(QStringLiteral("set-look"), QString::fromStdString(encodeLook(*look)));
    if (options.still || options.animated)
        application.perform(QStringLiteral("set-motion"), options.animated);
}

void get(bool asJson)
{
    const RunningApplication::Wallpaper wallpaper = RunningApplication().wallpaper();
    if (asJson) {
        const nlohmann::ordered_json look =
            wallpaper.look.empty() ? nullptr : nlohmann::ordered_json::parse(wallpaper.look);
        std::cout << nlohmann::ordered_json{{"look", look}, {"animated", wallpaper.isAnimated}}.dump()
                  << '\n';
        return;
    }
    if (wallpaper.look.empty())
        throw std::runtime_error("there is no wallpaper of Tessel Broth's on the desktop");
    std::cout << wallpaper.look << '\n';
}

} // namespace

void addDoCommand(CLI::App& app)
{
    auto action = std::make_shared<std::string>();
    CLI::App& command =
        *app.add_subcommand("do", "Have the running Tessel Broth do something, as its menu does");
    command
        .add_option("ACTION", *action,
                    "new-wallpaper, previous-wallpaper, toggle-motion, open-editor or quit")
        ->required();
    command.footer("Made for keyboard shortcuts and timers.");
    command.callback([action] { RunningApplication().perform(QString::fromStdString(*action)); });
}

void addSetCommand(CLI::App& app)
{
    auto options = std::make_shared<SetOptions>();
    CLI::App& command =
        *app.add_subcommand("set", "Put a look on the desktop, through the running Tessel Broth");
    command.add_option("LOOK", options->look,
                       "JSON text, a JSON file, - for standard input, or a PNG made by tessel");
    CLI::Option* still = command.add_flag("--still", options->still, "As the desktop's own picture");
    command.add_flag("--animated", options->animated, "Played live")->excludes(still);
    command.footer(
        "Without LOOK the wallpaper that is there becomes still or animated. The one before can be gone back "
        "to in the menu.");
    command.callback([options] { set(*options); });
}

void addGetCommand(CLI::App& app)
{
    auto json = std::make_shared<bool>(false);
    CLI::App& command = *app.add_subcommand("get", "Print the look that is on the desktop");
    command.add_flag("--json", *json,
                     "As a JSON object: the look, null for none, and whether it is animated");
    command.footer("\"tessel set\" takes what is printed here.");
    command.callback([json] { get(*json); });
}

} // namespace tessel::cli
