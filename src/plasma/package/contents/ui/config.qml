// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// There is nothing to be chosen in Plasma's own settings.

import QtQuick
import QtQuick.Controls

Label {
    property var configDialog
    property var wallpaperConfiguration
    property string cfg_Before
    property string cfg_BeforeDefault
    property string cfg_Image
    property string cfg_ImageDefault

    horizontalAlignment: Text.AlignHCenter
    text: Qt.locale().name.startsWith("de")
        ? "Was hier spielt, wird in Tessel Broth gewählt."
        : "What plays here is chosen in Tessel Broth."
    wrapMode: Text.WordWrap
}
