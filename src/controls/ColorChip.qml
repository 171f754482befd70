// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** A colour of a palette with its digits; one of them is open. */
Pressable {
    id: root

    property color color
    property string hex
    property bool open: false

    readonly property bool ringed: focused && Surroundings.usesKeys
    readonly property bool framed: open || hovered || ringed
    readonly property color gap: ringed && open ? Theme.amber : Theme.shell

    Accessible.checkable: true
    Accessible.checked: open
    Accessible.role: Accessible.RadioButton
    height: 61
    scale: pressed ? Theme.pressScale : 1
    width: 56

    Stepped {
        color: root.ringed ? Theme.steam : root.open ? Theme.amber : Theme.edge
        height: 48
        radius: 2
        visible: root.framed
        width: root.width + 4
        x: -2
        y: -2
    }
    Stepped {
        color: root.gap
        height: 44
        radius: 2
        visible: root.framed
        width: root.width
    }
    Stepped {
        readonly property real margin: root.framed ? 2 : 0

        color: root.color
        hairline: Qt.tint(root.color, Theme.white(0.16))
        height: 44 - 2 * margin
        radius: 2
        width: root.width - 2 * margin
        x: margin
        y: margin
    }
    NumberText {
        anchors.horizontalCenter: parent.horizontalCenter
        color: root.open ? Theme.amber : Theme.stock
        font.weight: root.open ? Font.DemiBold : Font.Medium
        height: 14
        text: root.hex
        y: 47
    }
}
