// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace tessel {

/// The lines of a file in which a desktop keeps settings, of its first MiB; none if it is no ordinary file
/// that can be read.
[[nodiscard]] QList<QByteArray> settingLines(const QString& file);

} // namespace tessel
