// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QQmlEngine;

namespace tessel {

/// Makes "import TesselBroth.Controls" work in an engine: its types, typefaces, symbols and shapes. There
/// must be a QGuiApplication.
void installControls(QQmlEngine& engine);

} // namespace tessel
