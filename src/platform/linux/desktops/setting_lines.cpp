// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/desktops/setting_lines.h"

#include <QFile>
#include <QFileInfo>

namespace tessel {

QList<QByteArray> settingLines(const QString& file)
{
    static constexpr qint64 most = qint64{1} << 20; // bytes
    QFile opened(file);
    if (!QFileInfo(file).isFile() || !opened.open(QIODevice::ReadOnly))
        return {};
    return opened.read(most).split('\n');
}

} // namespace tessel
