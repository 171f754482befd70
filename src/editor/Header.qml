// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls
import TesselBroth.Editor

/** The name, what the look is, and the actions on all of it. */
Item {
    id: root

    required property EditorModel model
    /** The menu of what can be exported is open. */
    required property bool isExporting

    signal exportAsked(Item button)
    signal closeAsked

    height: 48

    Image {
        anchors.left: parent.left
        anchors.leftMargin: 12
        height: 18
        smooth: false
        source: `image://shapes/mark/${Screen.devicePixelRatio}`
        width: 18
        y: 10
    }
    Label {
        Accessible.name: text
        Accessible.role: Accessible.Heading
        anchors.left: parent.left
        anchors.leftMargin: 38
        color: Theme.amber
        height: 18
        text: qsTr("Tessel Broth")
        y: 8

        font {
            letterSpacing: -0.14
            pixelSize: 14
            weight: Font.DemiBold
        }
    }
    Rectangle {
        anchors.left: parent.left
        anchors.leftMargin: 38
        color: root.model.look.isOnDesktop ? Theme.ok : Theme.draft
        height: 5
        width: 5
        y: 32
    }
    Label {
        Accessible.focusable: false
        Accessible.name: text
        Accessible.role: Accessible.StaticText
        anchors.left: parent.left
        anchors.leftMargin: 48
        font.weight: Font.Normal
        height: 14
        text: root.model.look.status
        y: 27
    }
    Row {
        anchors.right: parent.right
        anchors.rightMargin: 12
        spacing: 4
        y: 11

        IconButton {
            enabled: root.model.look.canUndo
            mirror: root.LayoutMirroring.enabled
            symbol: "arrow-back-up"
            tip: qsTr("Undo")

            onClicked: root.model.look.undo()
        }
        IconButton {
            symbol: "arrows-shuffle"
            //: makes another look at random, which is not put on the desktop
            tip: qsTr("Shuffle draft")

            onClicked: root.model.look.shuffleDraft()
        }
        IconButton {
            id: exporting

            Accessible.role: Accessible.ButtonMenu
            open: root.isExporting
            symbol: "download"
            tip: qsTr("Export PNG")

            onClicked: root.exportAsked(exporting)
        }
        IconButton {
            symbol: "x"
            tip: qsTr("Close")

            onClicked: root.closeAsked()
        }
    }
}
