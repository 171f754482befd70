// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/color_field.h"
#include "editor/look_reader.h"
#include "model/palette.h"

#include <cstdint>
#include <cstdlib>
#include <string>

using namespace tessel;

/// The input as text that somebody pastes: into the field of a colour, and into the editor.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString texts[] = {
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)),
        // With halves of characters, as other programs may give it.
        QString(reinterpret_cast<const QChar*>(std::u16string(data, data + size).data()),
                static_cast<qsizetype>(size))};
    for (const QString& text : texts) {
        const auto color = colorFromHex(text);
        if (color && colorFromHex(QString::fromStdString(hexText(*color))) != color)
            std::abort();
        ColorField field(1);
        if (field.enterHex(text) != color.has_value() || (color && field.value() != *color))
            std::abort();
        const Found found = readLookJson(text.toUtf8());
        if (std::holds_alternative<CopiedPhoto>(found) ||
            (std::holds_alternative<Look>(found) && !isMeantAsLook(text)))
            std::abort();
    }
    return 0;
}
