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
    Rectangle {
        id: well

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        border.color: root.on ? Theme.amber : Theme.edge
        border.width: 1
        color: root.on ? Theme.ember : Theme.soot
        height: 20
        opacity: root.enabled ? 1 : 0.4
        radius: 7
        width: 36

        Rectangle {
            // "On" is away from the label, which is on the left where people read from the right.
            readonly property bool atRight: root.on !== root.LayoutMirroring.enabled

            color: root.on ? Theme.amber : root.hovered ? Theme.steam : Theme.stock
            height: 14
            radius: 4
            width: 14
            x: atRight ? 19 : 3
            y: 3

            Behavior on x {
                NumberAnimation {
                    duration: Theme.hoverTime
                    easing.type: Easing.OutQuad
                }
            }
        }
        FocusRing {
            shown: root.focused
        }
    }
}
