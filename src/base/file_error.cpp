// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/file_error.h"

#include <cerrno>
#include <system_error>

namespace tessel {

namespace fs = std::filesystem;

fs::path folderOf(const fs::path& path)
{
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

std::string reasonFor(int error, const fs::path& path)
{
    std::error_code ignored;
    const fs::path folder = folderOf(path);
    switch (error) {
    case EACCES:
    case EPERM:
        return "permission denied";
    case EROFS:
        return "the file system is read-only";
    case ENOENT:
        return fs::exists(folder, ignored) ? "there is no such file"
                                           : "there is no folder " + folder.string();
    case ENOTDIR:
        return folder.string() + " is not a folder";
    case EISDIR:
        return "it is a folder";
    case ENOSPC:
        return "the disk is full";
    case EDQUOT:
        return "the disk quota is used up";
    case EFBIG:
        return "the file would be larger than is allowed";
    case ENAMETOOLONG:
        return "the name is too long";
    case EIO:
        return "the disk reports a fault";
    default:
        return std::generic_category().message(error);
    }
}

} // namespace tessel
