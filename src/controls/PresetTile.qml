// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** A whole look with its name on a plate, and a symbol if it moves. */
Pressable {
    id: root

    property string title
    property string picture
    property bool animated: false
    property bool selected: false

    readonly property color ink: selected ? Theme.amber : hovered ? Theme.steam : Theme.stock

    Accessible.checkable: true
    Accessible.checked: selected
    //: of a wallpaper
    Accessible.description: animated ? qsTr("Animated") : qsTr("Still")
    Accessible.role: Accessible.RadioButton
    height: 102
    label: title
    scale: pressed ? Theme.tilePressScale : 1
    width: 141

    Behavior on scale {
        NumberAnimation {
            duration: Theme.pressTime
            easing.type: Easing.OutQuad
        }
    }

    TileFrame {
        anchors.fill: parent
        focused: root.focused
        hovered: root.hovered
        selected: root.selected

        TilePicture {
            height: 80
            source: root.picture
        }
        Rectangle {
            color: Theme.pan
            height: 22
            width: parent.width
            y: 80
        }
        Label {
            color: root.ink
            height: 22
            text: root.title
            y: 80

            anchors {
                left: parent.left
                leftMargin: 8
                right: symbol.visible ? symbol.left : parent.right
                rightMargin: symbol.visible ? 4 : 8
            }
        }
        Symbol {
            id: symbol

            anchors.right: parent.right
            anchors.rightMargin: 8
            box: 12
            color: root.ink
            name: "live-photo"
            stroke: 2
            visible: root.animated
            y: 85
        }
    }
}
