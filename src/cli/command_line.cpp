// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_line.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>

namespace tessel::cli {

int run(int argc, char** argv)
{
    CLI::App app("Draws generative wallpapers without a display: a look as JSON in, a PNG out.", "tessel");
    app.set_version_flag("--version", TESSEL_VERSION);
    app.require_subcommand(1);
    addRenderCommand(app);
    addShuffleCommand(app);
    addSheetCommand(app);
    addListCommand(app);
    addInspectCommand(app);
    addReadCommand(app);
    addDoCommand(app);
    addSetCommand(app);
    addGetCommand(app);
    addCheckCommand(app);
    // Only now: commands that are added would have it, too.
    app.footer("LOOK is JSON text, a JSON file, - for standard input, or a PNG made by tessel; "
               "without it the default look is taken.");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const bool asked = error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success);
        app.exit(error);
        return asked ? 0 : 2;
    } catch (const std::exception& error) {
        std::cerr << "tessel: " << error.what() << '\n';
        return 1;
    }
    std::cout.flush();
    if (!std::cout) {
        std::cerr << "tessel: standard output could not be written\n";
        return 1;
    }
    return 0;
}

} // namespace tessel::cli
