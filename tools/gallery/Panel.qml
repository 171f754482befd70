// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls
import TesselBroth.Editor

/** The editor on its shell, on something bright. */
Rectangle {
    id: root

    required property EditorModel model
    required property LivePicture preview

    color: "#E0708A"

    Shell {
        anchors.fill: parent
        anchors.margins: 24

        Editor {
            anchors.fill: parent
            model: root.model
            preview: root.preview
        }
    }
}
