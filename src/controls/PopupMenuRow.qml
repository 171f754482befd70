// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** One row of a menu. */
Item {
    id: root

    required property string text
    property string detail
    property bool isCurrent: false
    /** Whether it is the one that is chosen, if it can be. */
    property var mark
    /** Whether there is room for such marks before the text. */
    property bool isMarked: false
    /** A line stands before it. */
    property bool separated: false

    signal entered
    signal exited
    signal pressed

    readonly property real indent: isMarked ? 28 : 10
    readonly property color ink: !enabled ? Theme.disabledText : isCurrent ? Theme.amber : Theme.steam

    Accessible.checkable: mark !== undefined
    Accessible.checked: mark === true
    Accessible.focusable: true
    Accessible.name: detail === "" ? text : `${text}  ·  ${detail}`
    Accessible.onPressAction: if (enabled) pressed()
    Accessible.role: Accessible.MenuItem
    height: separated ? 35 : 26
    implicitWidth: Math.ceil(indent + 10 + words.implicitWidth + (detail === "" ? 0 : dot.implicitWidth + more.implicitWidth))

    Rectangle {
        color: Theme.line
        height: 1
        visible: root.separated
        width: parent.width - 20
        x: 10
        y: 4
    }
    Rectangle {
        anchors.bottom: parent.bottom
        color: Theme.ember
        height: 26
        radius: 5
        visible: root.isCurrent
        width: parent.width
    }
    Label {
        id: words

        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.leftMargin: root.indent
        color: root.ink
        elide: Text.ElideRight
        height: 26
        text: root.text
        width: Math.min(implicitWidth, root.width - root.indent - 10)
    }
    Symbol {
        anchors.left: parent.left
        anchors.leftMargin: 7
        anchors.verticalCenter: words.verticalCenter
        box: 16
        color: root.ink
        name: "check"
        visible: root.mark === true
    }
    Label {
        id: dot

        anchors.bottom: parent.bottom
        anchors.left: words.right
        color: root.isCurrent ? Theme.amber : Theme.stock
        font.weight: Font.Normal
        height: 26
        text: "  ·  "
        visible: root.detail !== ""
    }
    Label {
        id: more

        anchors.bottom: parent.bottom
        anchors.left: dot.right
        color: root.isCurrent ? Theme.amber : Theme.stock
        font.weight: Font.Normal
        height: 26
        text: root.detail
        visible: root.detail !== ""
    }
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true

        onClicked: if (root.enabled) root.pressed()
        onContainsMouseChanged: containsMouse ? root.entered() : root.exited()
    }
}
