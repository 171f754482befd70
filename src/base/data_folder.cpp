// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/data_folder.h"

#include "base/identity.h"

#include <QStandardPaths>

namespace tessel {

QString dataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QLatin1Char('/') +
           identity::folder;
}

} // namespace tessel
