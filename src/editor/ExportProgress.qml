// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls
import TesselBroth.Editor

/** How far the pictures are that are being saved, and a button that gives them up. */
Rectangle {
    id: root

    required property Exporter exporter

    Accessible.description: qsTr("%1 %").arg(Math.round(exporter.progress * 100))
    Accessible.name: exporter.title
    Accessible.role: Accessible.ProgressBar
    color: Theme.pan
    height: 30
    visible: exporter.isBusy

    Label {
        id: title

        anchors.left: parent.left
        anchors.leftMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.steam
        text: root.exporter.title
        width: Math.min(implicitWidth, 150)
    }
    Item {
        anchors.left: title.right
        anchors.leftMargin: 10
        anchors.right: cancel.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        height: 8

        Ramp {
            anchors.fill: parent
            colors: Theme.trackOff
        }
        Item {
            anchors.left: parent.left
            clip: true
            height: 8
            width: Math.round(parent.width * root.exporter.progress)

            Ramp {
                colors: Theme.trackOn
                height: 8
                width: cancel.x - title.x - title.width - 18
            }
        }
    }
    IconButton {
        id: cancel

        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        symbol: "x"
        tip: qsTr("Stop saving")

        onClicked: root.exporter.cancel()
    }
}
