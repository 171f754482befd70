// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/file_descriptor.h"
#include "base/file_error.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>

namespace tessel {

/// What a file that takes the place of another may be used for, and by whom.
enum class Permissions : std::uint8_t
{
    usual,
    asBefore
};

/// Whether a file is on the disk when it is in its place, or the system may bring it there later. Until then
/// a crash of the machine may leave neither the old nor the new file.
enum class Sync : std::uint8_t
{
    now,
    later
};

/// Writes one file so that it appears whole or not at all: until it is complete on the disk, an older file of
/// that name stays what it was, also after an error, and where nothing commits. A link is followed
/// to the file it means; a device or pipe is written into.
///
/// The new file grows beside the old one, as ".tessel-<process>-<number>.tmp". One that a killed program left
/// behind is removed by whoever writes into the same folder next.
class FileWriter
{
public:
    /// \throws FileError
    explicit FileWriter(const std::filesystem::path& path, Permissions permissions = Permissions::usual);
    ~FileWriter();
    FileWriter(const FileWriter&) = delete;
    FileWriter& operator=(const FileWriter&) = delete;

    /// Appends.
    /// \throws FileError
    void write(std::span<const std::byte> bytes);

    /// Puts the file in its place; the last call.
    /// \throws FileError
    void commit(Sync sync = Sync::now);

private:
    [[noreturn]] void fail(int error) const;
    void followLinks();
    void createTemporary();
    void giveUp();

    std::filesystem::path m_name;      ///< as the caller calls it
    std::filesystem::path m_target;    ///< the same file after links
    std::filesystem::path m_temporary; ///< empty for a device, and once it is in its place
    FileDescriptor m_file;
};

/// Writes a file of these bytes.
/// \throws FileError
void writeFile(const std::filesystem::path& path, std::span<const std::byte> bytes);

/// Whether a name is one that a file has while a FileWriter writes it.
[[nodiscard]] bool isTemporary(const std::string& name);

} // namespace tessel
