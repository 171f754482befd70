// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"

#include <QByteArray>
#include <QString>

#include <variant>

namespace tessel {

/// The path of a photo that was copied into the folder of photos.
struct CopiedPhoto
{
    QString path;
};

/// Why something that is meant as a look is none.
struct NoLook
{
    QString reason;
};

/// What a file or a picture from elsewhere was found to be.
using Found = std::variant<Look, CopiedPhoto, NoLook>;

/// Whether text is meant as the JSON of a look.
[[nodiscard]] bool isMeantAsLook(const QString& text);

/// Reads the JSON of a look.
[[nodiscard]] Found readLookJson(const QByteArray& json);

/// Reads a file: the JSON of a look, a PNG file that carries one, or another picture, which is copied. May be
/// called from any thread.
/// \param photoFolder where the copy goes
/// \throws FileError for what is no picture, and where it cannot be read or copied
[[nodiscard]] Found readLookFile(const QString& file, const QString& photoFolder);

/// The same for a picture that has been read already, as a PNG file.
[[nodiscard]] Found readLookPng(const QByteArray& png, const QString& photoFolder);

} // namespace tessel
