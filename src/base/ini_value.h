// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArrayView>
#include <QVariant>

namespace tessel {

/// The value of a line `key=value` of an INI file, as QSettings reads it: bytes for `@ByteArray(...)`, a list
/// of texts where there is a comma outside quotes, otherwise a text. It ends at a line break or semicolon
/// outside quotes. Values of other types, which QSettings would make of `@Variant(...)`, stay text: whatever
/// a file asks for, nothing but text is made of it.
[[nodiscard]] QVariant iniValue(QByteArrayView text);

} // namespace tessel
