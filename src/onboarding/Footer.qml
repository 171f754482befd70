// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls
import TesselBroth.Onboarding

/** How far the introduction has come, and the ways back and on. */
Item {
    id: root

    required property Onboarding model
    readonly property alias forward: forwardButton

    height: 32

    Row {
        anchors.left: parent.left
        anchors.leftMargin: 56
        height: parent.height
        spacing: 6

        Repeater {
            model: 4

            Rectangle {
                required property int index

                anchors.verticalCenter: parent.verticalCenter
                color: index <= root.model.step ? Theme.amber : Theme.line
                height: 6
                width: index === root.model.step ? 18 : 6
            }
        }
        Label {
            Accessible.name: text
            Accessible.role: Accessible.StaticText
            font.weight: Font.Normal
            height: parent.height
            leftPadding: 10
            rightPadding: 10
            text: root.model.stepText
        }
    }
    Row {
        anchors.right: parent.right
        anchors.rightMargin: 56
        spacing: 8

        SmallButton {
            height: root.height
            padding: 16
            //: to the step before
            text: qsTr("Back")
            textSize: 13
            visible: root.model.step !== Onboarding.Welcome

            onClicked: root.model.goBack()
        }
        SmallButton {
            id: forwardButton

            Accessible.description: root.model.stepText
            height: root.height
            kind: SmallButton.Filled
            padding: 16
            symbol: "arrow-right"
            symbolBox: 16
            symbolLeads: true
            text: root.model.forwardTitle
            textSize: 13

            onClicked: root.model.goForward()
        }
    }
}
