// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_line.h"
#include "cli/look_source.h"
#include "model/look_json.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>
#include <string>

namespace tessel::cli {

void addReadCommand(CLI::App& app)
{
    auto file = std::make_shared<std::string>();
    CLI::App& command = *app.add_subcommand("read", "Print the look that a PNG made by tessel holds");
    command.add_option("FILE", *file, "The PNG file")->required();
    command.callback([file] { std::cout << encodeLook(readPngLook(*file)) << '\n'; });
}

} // namespace tessel::cli
