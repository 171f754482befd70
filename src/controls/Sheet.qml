// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls

/**
 * A question above everything in what it fills: a title, a text, maybe a field, and one or two buttons. Return takes
 * the first button, Escape the other. Nothing behind it can be reached while it is open.
 */
Overlay {
    id: root

    property string title
    property string text
    property string firstTitle: qsTr("OK")
    /** Empty: there is only the first. */
    property string otherTitle
    property int firstKind: SmallButton.Filled
    property bool asksText: false
    property alias answer: field.text

    /** The first button was taken. */
    signal accepted(string answer)
    signal canceled

    function open() {
        show()
        if (asksText)
            field.focusAll()
        else
            first.forceActiveFocus(Qt.PopupFocusReason)
    }

    function accept() {
        if (!isOpen || !first.enabled)
            return
        const written = answer
        hide()
        accepted(written)
    }

    function cancel() {
        if (!isOpen)
            return
        hide()
        canceled()
    }

    Accessible.name: title
    Accessible.description: text
    Accessible.role: Accessible.Dialog
    z: 70

    Keys.onEscapePressed: cancel()
    Keys.onPressed: event => event.accepted = true // nothing behind it hears of keys
    Keys.onReturnPressed: accept()
    Keys.onEnterPressed: accept()

    Rectangle {
        anchors.fill: parent
        color: Theme.soot
        opacity: root.isOpen ? 0.6 : 0

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.fadeTime
            }
        }
    }
    MouseArea {
        acceptedButtons: Qt.AllButtons
        anchors.fill: parent
        hoverEnabled: true

        onWheel: wheel => wheel.accepted = true
    }
    Shell {
        id: card

        anchors.horizontalCenter: parent.horizontalCenter
        color: Theme.pan
        height: column.height + 34
        radius: 4
        shadowed: true
        width: Math.min(264, root.width - 16)
        y: Math.max(8, Math.min(60, root.height - height - 8))

        Column {
            id: column

            anchors {
                left: parent.left
                leftMargin: 16
                right: parent.right
                rightMargin: 16
                top: parent.top
                topMargin: 16
            }

            Label {
                color: Theme.steam
                elide: Text.ElideNone
                height: implicitHeight
                lineHeight: 18
                lineHeightMode: Text.FixedHeight
                text: root.title
                width: parent.width
                wrapMode: Text.Wrap

                font {
                    pixelSize: 13
                    weight: Font.DemiBold
                }
            }
            Item {
                height: 4
                width: 1
            }
            Label {
                elide: Text.ElideNone
                font.weight: Font.Normal
                height: implicitHeight
                lineHeight: 16
                lineHeightMode: Text.FixedHeight
                text: root.text
                visible: text !== ""
                width: parent.width
                wrapMode: Text.Wrap
            }
            Item {
                height: 12
                width: 1
            }
            Field {
                id: field

                KeyNavigation.backtab: first
                KeyNavigation.tab: other.visible ? other : first
                label: root.title
                visible: root.asksText
                width: parent.width

                onAccepted: root.accept()
            }
            Item {
                height: 12
                visible: root.asksText
                width: 1
            }
            Row {
                anchors.right: parent.right
                spacing: 6

                SmallButton {
                    id: other

                    KeyNavigation.backtab: root.asksText ? field : first
                    KeyNavigation.tab: first
                    text: root.otherTitle
                    visible: root.otherTitle !== ""

                    onClicked: root.cancel()
                }
                SmallButton {
                    id: first

                    KeyNavigation.backtab: other.visible ? other : root.asksText ? field : first
                    KeyNavigation.tab: root.asksText ? field : other.visible ? other : first
                    kind: root.firstKind
                    text: root.firstTitle

                    onClicked: root.accept()
                }
            }
        }
    }
}
