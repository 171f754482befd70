// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls

/** A few things of which one is chosen, side by side. One stop of the keyboard; arrows choose. */
Item {
    id: root

    /** Texts in order. */
    required property var titles
    /** Names of symbols before them, or none. */
    property list<string> symbols
    property int current: 0
    property string label
    property real textSize: 11
    /** The group or one of its segments has the focus. */
    property bool focused: false

    signal chosen(int index)

    function move(step: int) {
        const next = (current + step + titles.length) % titles.length
        chosen(next)
        const segment = segments.itemAt(next)
        if (segment && segment.visible)
            segment.forceActiveFocus(Qt.OtherFocusReason)
    }

    Accessible.name: label
    Accessible.role: Accessible.Grouping
    height: 28

    Rectangle {
        anchors.fill: parent
        border.color: Theme.well
        border.width: 1
        color: Theme.soot
        radius: 8
    }
    Highlight {
        height: parent.height - 4
        radius: 6
        target: segments.count > root.current && segments.itemAt(root.current)
            ? row.x + (segments.itemAt(root.current) as Item).x : 2
        width: row.segmentWidth
        y: 2
    }
    Row {
        id: row

        readonly property real segmentWidth: width / root.titles.length

        anchors {
            fill: parent
            margins: 2
        }

        Repeater {
            id: segments

            model: root.titles

            Pressable {
                id: segment

                required property int index
                required property string modelData
                readonly property bool isChosen: index === root.current
                readonly property color ink: isChosen || hovered ? Theme.steam : Theme.stock

                Accessible.checkable: true
                Accessible.checked: isChosen
                Accessible.role: Accessible.RadioButton
                activeFocusOnTab: isChosen || activeFocus // what has the focus cannot leave the chain
                height: row.height
                label: modelData
                takesReturn: false // it has nothing to do there
                width: row.segmentWidth

                Keys.onLeftPressed: root.move(root.LayoutMirroring.enabled ? 1 : -1)
                Keys.onRightPressed: root.move(root.LayoutMirroring.enabled ? -1 : 1)
                Keys.onUpPressed: root.move(-1)
                Keys.onDownPressed: root.move(1)
                onActiveFocusChanged: root.focused = activeFocus
                onClicked: root.chosen(index)

                Row {
                    anchors.centerIn: parent
                    spacing: 6

                    Symbol {
                        anchors.verticalCenter: parent.verticalCenter
                        color: segment.isChosen ? Theme.amber : segment.ink
                        name: root.symbols[segment.index] ?? ""
                        visible: name !== ""
                    }
                    Label {
                        color: segment.ink
                        font.pixelSize: root.textSize
                        font.weight: segment.isChosen ? Font.DemiBold : Font.Medium
                        text: segment.modelData
                    }
                }
            }
        }
    }
    FocusRing {
        corner: 8
        shown: root.focused
    }
}
