// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** A setting with what it means, and a switch at its trailing end; all of it can be pressed. */
Pressable {
    id: root

    required property string title
    required property string detail
    required property bool on

    signal toggled(bool on)

    Accessible.checkable: true
    Accessible.checked: on
    Accessible.description: detail
    Accessible.role: Accessible.CheckBox
    height: 40
    label: title
    takesReturn: false

    onClicked: toggled(!on)

    Column {
        anchors.left: parent.left
        width: parent.width - 48

        Label {
            Accessible.ignored: true
            color: Theme.steam
            font.pixelSize: 14
            font.weight: Font.DemiBold
            height: 20
            text: root.title
            width: parent.width
        }
        Label {
            Accessible.ignored: true
            font.pixelSize: 13
            font.weight: Font.Normal
            height: 20
            text: root.detail
            width: parent.width
        }
    }
    Switch {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        lit: root.hovered
        on: root.on

        FocusRing {
            shown: root.focused
        }
    }
}
