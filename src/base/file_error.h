// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace tessel {

/// A file that cannot be written or read. The message names it and says why, in words for people.
class FileError : public std::runtime_error
{
public:
    enum class Code : std::uint8_t
    {
        noPermission, ///< the folder cannot be written to, or the file may not be read
        unknown,
    };

    FileError(Code errorCode, const std::string& message) : std::runtime_error(message), code(errorCode) {}

    Code code;
};

/// Why the system refused something with a file, in plain words.
/// \param error as in errno
[[nodiscard]] std::string reasonFor(int error, const std::filesystem::path& path);

/// The folder that a file is in; "." for a bare name.
[[nodiscard]] std::filesystem::path folderOf(const std::filesystem::path& path);

} // namespace tessel
