// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls

/** A picture with its name, one of several to choose from. It is in clay until it is hovered, focused or chosen. */
Pressable {
    id: root

    property string title
    property string picture
    property string livePicture
    property bool selected: false
    property real pictureHeight: 44

    readonly property bool lively: selected || hovered || focused && Surroundings.usesKeys

    Accessible.checkable: true
    Accessible.checked: selected
    Accessible.role: Accessible.RadioButton
    height: pictureHeight + 19
    label: title
    scale: pressed ? Theme.tilePressScale : 1
    width: 66

    Behavior on scale {
        NumberAnimation {
            duration: Theme.pressTime
            easing.type: Easing.OutQuad
        }
    }

    TileFrame {
        focused: root.focused
        height: root.pictureHeight
        hovered: root.hovered
        selected: root.selected
        width: root.width

        TilePicture {
            source: root.picture
        }
        Repeater {
            model: root.lively ? 1 : 0

            SteadyImage {
                address: root.livePicture
                height: root.pictureHeight
                width: root.width
            }
        }
    }
    Label {
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        color: root.selected ? Theme.amber : root.hovered ? Theme.steam : Theme.stock
        font.weight: root.selected ? Font.DemiBold : Font.Normal
        height: 14
        text: root.title
        width: parent.width
    }
}
