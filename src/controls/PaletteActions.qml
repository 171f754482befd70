// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** What can be done to a palette of one's own, on its swatch. */
Rectangle {
    id: root

    readonly property bool containsPointer: edit.hovered || remove.hovered

    signal editAsked
    signal deleteAsked

    color: Theme.shell

    component Action: Pressable {
        id: action

        required property string symbol
        property color color: Theme.steam

        Accessible.name: tip
        activeFocusOnTab: false // the swatch's own keys do the same
        height: 24
        takesFocus: false
        width: 24

        Rectangle {
            anchors.fill: parent
            color: Theme.lift
            visible: action.hovered
        }
        Symbol {
            anchors.centerIn: parent
            box: 14
            color: action.color
            name: action.symbol
        }
    }

    Action {
        id: edit

        anchors.left: parent.left
        symbol: "pencil"
        tip: qsTr("Edit")

        onClicked: root.editAsked()
    }
    Action {
        id: remove

        anchors.right: parent.right
        color: Theme.bad
        symbol: "trash"
        tip: qsTr("Delete")

        onClicked: root.deleteAsked()
    }
}
