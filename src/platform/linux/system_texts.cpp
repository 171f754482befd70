// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/system_texts.h"

#include <QCoreApplication>

namespace tessel {

QString introductionText()
{
    return QCoreApplication::translate(
        "SystemTexts",
        "Wallpapers simmered one pixel at a time. Made on your computer, still or gently moving.");
}

QString openAtLoginText()
{
    //: the ladle is the handle at the edge of the screen
    return QCoreApplication::translate("SystemTexts", "The ladle is there when your computer starts.");
}

} // namespace tessel
