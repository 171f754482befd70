// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** A label with a switch at its trailing end; all of it can be pressed. */
Pressable {
    id: root

    property bool on: false

    signal toggled(bool on)

    Accessible.checkable: true
    Accessible.checked: on
    //: the state of a switch
    Accessible.description: on ? qsTr("On") : qsTr("Off")
    Accessible.role: Accessible.CheckBox
    height: 26

    onClicked: toggled(!on)

    Label {
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        opacity: root.enabled ? 1 : 0.4
        text: root.label
    }
    Switch {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        lit: root.hovered
        on: root.on
        opacity: root.enabled ? 1 : 0.4

        FocusRing {
            shown: root.focused
        }
    }
}
