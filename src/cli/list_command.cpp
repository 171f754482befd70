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

nlohmann::ordered_json makeList(const std::string& kind)
{
    if (kind == "patterns")
        return titleList(allPatterns());
    return kind == "dithers" ? titleList(allDithers()) : paletteList();
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
    auto kind = std::make_shared<std::string>();
    auto json = std::make_shared<bool>(false);
    CLI::App& command = *app.add_subcommand("list", "Print the patterns, dithers or palettes");
    command.add_option("KIND", *kind, "patterns, dithers or palettes")
        ->required()
        ->check(CLI::IsMember({"patterns", "dithers", "palettes"}).description(""));
    command.add_flag("--json", *json, "As a JSON array of objects");
    command.callback([kind, json] {
        const nlohmann::ordered_json list = makeList(*kind);
        if (*json)
            std::cout << list.dump() << '\n';
        else
            printText(list);
    });
}

} // namespace tessel::cli
