// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_line.h"
#include "model/palette.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <iomanip>
#include <iostream>
#include <memory>
#include <string>

namespace tessel::cli {

namespace {

template<typename Items>
nlohmann::ordered_json titleList(const Items& items)
{
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const auto item : items)
        list.push_back({{"index", static_cast<int>(item)}, {"name", title(item)}});
    return list;
}

nlohmann::ordered_json paletteList()
{
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const Palette& palette : builtInPalettes())
        list.push_back({{"index", list.size()},
                        {"name", palette.name},
                        {"group", palette.group},
                        {"hex", std::vector<Color>(palette.hex.begin(), palette.hex.end())}});
    return list;
}

void printText(const nlohmann::ordered_json& list)
{
    std::string group;
    for (const auto& entry : list) {
        if (entry.contains("group") && entry["group"] != group) {
            group = entry["group"];
            std::cout << '\n' << group << '\n';
        }
        std::cout << std::setw(3) << entry["index"].get<int>() << "  " << entry["name"].get<std::string>();
        if (entry.contains("hex"))
            for (const Color color : entry["hex"])
                std::cout << ' ' << hexText(color);
        std::cout << '\n';
    }
}

} // namespace

void addListCommand(CLI::App& app)
{
    CLI::App& command = *app.add_subcommand("list", "Print the patterns, dithers or palettes");
    command.require_subcommand(1);
    const auto add = [&command](const char* name, auto makeList) {
        auto json = std::make_shared<bool>(false);
        CLI::App& list = *command.add_subcommand(name, "Print the " + std::string(name));
        list.add_flag("--json", *json, "As a JSON array of objects");
        list.callback([json, makeList] {
            if (*json)
                std::cout << makeList().dump() << '\n';
            else
                printText(makeList());
        });
    };
    add("patterns", [] { return titleList(allPatterns()); });
    add("dithers", [] { return titleList(allDithers()); });
    add("palettes", paletteList);
}

} // namespace tessel::cli
