// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QQmlEngine;

namespace tessel {

class LookPictures;

/// Makes "import TesselBroth.Controls" work in an engine: its types, typefaces, symbols, shapes and pictures
/// of looks. There must be a QGuiApplication.
/// \param pictures must outlive the engine
void installControls(QQmlEngine& engine, LookPictures& pictures);

} // namespace tessel
