// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** A bowl to choose: a look in a rim, and its name below. */
Pressable {
    id: root

    required property string title
    required property string picture
    required property bool selected

    Accessible.checkable: true
    Accessible.checked: selected
    Accessible.role: Accessible.RadioButton
    height: 140
    label: title
    scale: pressed ? Theme.tilePressScale : 1
    takesReturn: false
    width: 140

    Behavior on scale {
        NumberAnimation {
            duration: Theme.pressTime
            easing.type: Easing.OutQuad
        }
    }

    Item {
        height: 132
        width: 132
        x: 4
        y: 4

        Rectangle {
            anchors.fill: parent
            color: Theme.pan
        }
        TilePicture {
            source: root.picture
        }
    }
    Art {
        anchors.fill: parent
        drawing: root.selected || root.hovered ? "tile/lit" : "tile/resting"
    }
    Stepped {
        anchors.fill: parent
        color: Theme.soot
        part: Stepped.Frame
        radius: 37
        ring: Theme.steam
        visible: root.focused && Surroundings.usesKeys
    }
    Stepped {
        color: Theme.amber
        height: 32
        radius: 8
        visible: root.selected
        width: 32
        x: 100
        y: 100

        Symbol {
            anchors.centerIn: parent
            box: 18
            color: Theme.ember
            name: "check"
            stroke: 3
        }
    }
    Label {
        color: root.selected ? Theme.amber : Theme.steam
        font.pixelSize: 13
        font.weight: root.selected ? Font.DemiBold : Font.Medium
        height: 18
        horizontalAlignment: Text.AlignHCenter
        text: root.title
        width: 180
        x: -20
        y: 148
    }
}
