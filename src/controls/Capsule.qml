// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** A label on a shell of its own, such as beside the strip. It fades with `shown`. */
Item {
    id: root

    required property string text
    property bool shown: true
    /** What it names cannot be done now. */
    property bool faint: false

    height: 28
    opacity: shown ? 1 : 0
    visible: opacity > 0
    width: label.implicitWidth + 30

    Behavior on opacity {
        NumberAnimation {
            duration: Theme.fadeTime
            easing.type: Easing.OutQuad
        }
    }

    Shell {
        anchors.fill: parent
        blur: 8
        drop: 3
        radius: 6
        shade: 0.4
    }
    Label {
        id: label

        anchors.centerIn: parent
        color: root.faint ? Theme.stock : Theme.steam
        font.pixelSize: 12
        text: root.text
    }
}
