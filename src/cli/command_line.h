// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace CLI {
class App;
}

namespace tessel::cli {

/// Runs `tessel` with these arguments. Returns the exit code: 0, 1 when it failed (a message on standard
/// error says why), 2 when the arguments are wrong.
int run(int argc, char** argv);

/// Each adds one command, with what it does, to the command line.
void addRenderCommand(CLI::App& app);
void addShuffleCommand(CLI::App& app);
void addSheetCommand(CLI::App& app);
void addListCommand(CLI::App& app);
void addInspectCommand(CLI::App& app);
void addReadCommand(CLI::App& app);
void addDoCommand(CLI::App& app);
void addSetCommand(CLI::App& app);
void addGetCommand(CLI::App& app);
void addCheckCommand(CLI::App& app);

} // namespace tessel::cli
