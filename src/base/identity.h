// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// What the program is called, wherever somebody asks: all of it stands here once.
namespace tessel::identity {

/// To people.
inline const auto name = QStringLiteral("Tessel Broth");

/// To desktops, buses and software centres; the object on the bus is named after it.
inline const auto id = QStringLiteral("org.tesselbroth.TesselBroth");
inline const auto objectPath = QStringLiteral("/org/tesselbroth/TesselBroth");

/// Of the folders below the user's configuration, data and cache homes.
inline const auto folder = QStringLiteral("Tessel Broth");

inline const auto webPage = QStringLiteral("https://tesselbroth.org");
inline const auto waylandPage = QStringLiteral("https://tesselbroth.org/guide#wayland");
inline const auto sourcePage = QStringLiteral("https://tesselbroth.org/source");

} // namespace tessel::identity
