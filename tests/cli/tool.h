// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace tessel {

/// What a run of the tool has left.
struct Outcome
{
    int exitCode = -1; ///< -1 if it was killed or crashed
    std::string out;
    std::string error;

    [[nodiscard]] nlohmann::json json() const { return nlohmann::json::parse(out); }
};

/// Runs the real tool in a folder of its own.
class Tool : public testing::Test
{
protected:
    Outcome run(const std::vector<std::string>& arguments, const std::string& input = {});

    /// Writes a file into the folder and returns its path.
    std::string write(const std::string& name, const std::string& content);

    [[nodiscard]] std::string path(const std::string& name) const
    {
        return folder.filePath(QString::fromStdString(name)).toStdString();
    }

    QTemporaryDir folder;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
};

} // namespace tessel
