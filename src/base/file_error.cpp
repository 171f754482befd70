// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/file_error.h"

#include <QCoreApplication>

#include <cerrno>
#include <system_error>

namespace tessel {

namespace fs = std::filesystem;

namespace {

struct FileErrorText
{
    Q_DECLARE_TR_FUNCTIONS(FileErrorText)
};

/// A text with the name of a folder in it, whose bytes need not be UTF-8.
std::string about(const fs::path& folder, const QString& text)
{
    const auto place = text.indexOf(QLatin1String("%1"));
    return text.left(place).toStdString() + folder.string() + text.mid(place + 2).toStdString();
}

} // namespace

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
        //: reasons, at the end of a sentence
        return FileErrorText::tr("permission denied").toStdString();
    case EROFS:
        return FileErrorText::tr("the file system is read-only").toStdString();
    case ENOENT:
        return fs::exists(folder, ignored) ? FileErrorText::tr("there is no such file").toStdString()
                                           : about(folder, FileErrorText::tr("there is no folder %1"));
    case ENOTDIR:
        return about(folder, FileErrorText::tr("%1 is not a folder"));
    case EISDIR:
        return FileErrorText::tr("it is a folder").toStdString();
    case ENOSPC:
        return FileErrorText::tr("the disk is full").toStdString();
    case EDQUOT:
        return FileErrorText::tr("the disk quota is used up").toStdString();
    case EFBIG:
        return FileErrorText::tr("the file would be larger than is allowed").toStdString();
    case ENAMETOOLONG:
        return FileErrorText::tr("the name is too long").toStdString();
    case EIO:
        return FileErrorText::tr("the disk reports a fault").toStdString();
    default:
        return std::generic_category().message(error);
    }
}

} // namespace tessel
