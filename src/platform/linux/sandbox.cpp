// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/sandbox.h"

#include <QFileInfo>

namespace tessel {

bool isSandboxed()
{
    return QFileInfo::exists(QStringLiteral("/.flatpak-info"));
}

} // namespace tessel
