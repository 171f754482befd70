// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/output.h"

#include "render/png_file.h"

#include <iostream>
#include <stdexcept>
#include <unistd.h>

namespace tessel::cli {

void refuseTerminal(const std::string& out)
{
    if (out == "-" && isatty(STDOUT_FILENO) == 1)
        throw std::runtime_error(
            "a PNG is not written to a terminal; redirect standard output or name a file");
}

void writePicture(const Picture& picture, const std::optional<std::string>& lookJson, const std::string& out)
{
    if (out != "-") {
        writePng(picture, lookJson, out);
        std::cout << out << '\n';
        return;
    }
    const auto bytes = encodePng(picture, lookJson);
    std::cout.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

} // namespace tessel::cli
