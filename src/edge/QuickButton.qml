// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** One row of the strip. What it does is said beside it while the pointer is over it. */
Item {
    id: root

    required property int index
    required property string label
    required property string symbol
    required property bool isEnabled
    required property bool isLit
    required property bool isHovered

    signal clicked

    height: 34
    width: 34

    Accessible.description: isEnabled ? "" : qsTr("Not available now")
    Accessible.focusable: isEnabled
    Accessible.name: label
    Accessible.role: Accessible.Button
    Accessible.onPressAction: if (isEnabled) root.clicked()

    Rectangle {
        anchors.fill: parent
        color: Theme.lift
        opacity: root.isHovered && root.isEnabled ? 1 : 0
        radius: 9
        scale: area.pressed ? Theme.pressScale : 1

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.hoverTime
                easing.type: Easing.OutQuad
            }
        }
    }
    Symbol {
        anchors.centerIn: parent
        box: 20
        color: !root.isEnabled ? Theme.stripDisabled : root.isHovered || root.isLit ? Theme.amber : Theme.stripSymbol
        mirror: root.symbol === "arrow-back-up" && Application.layoutDirection === Qt.RightToLeft
        name: root.symbol
    }
    MouseArea {
        id: area

        anchors.fill: parent
        enabled: root.isEnabled

        onClicked: root.clicked()
    }
}
