// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls

/** A line of text to write in. */
Item {
    id: root

    property string label
    property alias text: input.text
    property alias font: input.font
    property alias maximumLength: input.maximumLength
    /** What is in it cannot be taken. */
    property bool wrong: false
    property bool focused: input.activeFocus

    /** Return was pressed. */
    signal accepted

    function focusAll() {
        input.forceActiveFocus(Qt.OtherFocusReason)
        input.selectAll()
    }

    height: 28

    Rectangle {
        anchors.fill: parent
        border.color: root.wrong ? Theme.bad : root.focused ? Theme.steam : Theme.line
        border.width: root.wrong || root.focused ? 2 : 1
        color: Theme.soot
        radius: 6
    }
    TextInput {
        id: input

        Accessible.name: root.label
        Accessible.role: Accessible.EditableText
        activeFocusOnTab: root.enabled
        anchors.fill: parent
        anchors.leftMargin: 8
        anchors.rightMargin: 8
        clip: true
        color: Theme.steam
        maximumLength: 400
        selectByMouse: true
        selectedTextColor: Theme.amber
        selectionColor: Theme.ember
        verticalAlignment: TextInput.AlignVCenter

        cursorDelegate: Rectangle {
            id: caret

            color: Theme.amber
            visible: input.cursorVisible
            width: 1

            SequentialAnimation on opacity {
                loops: Animation.Infinite
                running: caret.visible

                PropertyAction {
                    value: 1
                }
                PauseAnimation {
                    duration: 530
                }
                PropertyAction {
                    value: 0
                }
                PauseAnimation {
                    duration: 530
                }
            }
        }
        font {
            family: Theme.family
            hintingPreference: Font.PreferVerticalHinting
            pixelSize: 12
            weight: Font.Medium
        }

        onAccepted: root.accepted()
    }
}
