// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_line.h"
#include "model/look_json.h"
#include "model/shuffle.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>

namespace tessel::cli {

namespace {

struct ShuffleOptions
{
    int count = 1;
    std::optional<std::uint64_t> randomSeed;
    std::optional<std::string> keepImage;
};

void shuffle(const ShuffleOptions& options)
{
    const RandomSource random = options.randomSeed ? seededSource(*options.randomSeed) : systemSource();
    for (int i = 0; i < options.count && std::cout; ++i)
        std::cout << encodeLook(randomLook(random, options.keepImage)) << '\n';
}

} // namespace

void addShuffleCommand(CLI::App& app)
{
    auto options = std::make_shared<ShuffleOptions>();
    CLI::App& command = *app.add_subcommand("shuffle", "Print random looks, one a line");
    command.add_option("--count", options->count, "How many [1]")
        ->check(CLI::Range(0, 1'000'000))
        ->type_name("N");
    command.add_option("--random-seed", options->randomSeed, "Print the same looks for the same number")
        ->type_name("N");
    command.add_option("--keep-image", options->keepImage, "A photo's path to put into every look")
        ->type_name("PATH");
    command.callback([options] { shuffle(*options); });
}

} // namespace tessel::cli
