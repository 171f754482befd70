// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls

/** Pages of which one is shown, by their titles in order. One stop of the keyboard; arrows choose. */
Item {
    id: root

    required property var titles
    property int current: 0
    property string label

    signal chosen(int index)

    function move(step: int) {
        const next = (current + step + titles.length) % titles.length
        chosen(next)
        const tab = tabs.itemAt(next)
        if (tab)
            tab.forceActiveFocus(Qt.OtherFocusReason)
    }

    Accessible.name: label
    Accessible.role: Accessible.PageTabList
    height: 28

    Highlight {
        height: parent.height
        radius: 7
        target: tabs.count > root.current && tabs.itemAt(root.current) ? (tabs.itemAt(root.current) as Item).x : 0
        width: row.tabWidth
    }
    Row {
        id: row

        readonly property real tabWidth: width / root.titles.length

        anchors.fill: parent

        Repeater {
            id: tabs

            model: root.titles

            Pressable {
                id: tab

                required property int index
                required property string modelData
                readonly property bool isChosen: index === root.current

                Accessible.role: Accessible.PageTab
                Accessible.selectable: true
                Accessible.selected: isChosen
                activeFocusOnTab: isChosen || activeFocus // what has the focus cannot leave the chain
                height: row.height
                label: modelData
                width: row.tabWidth

                Keys.onLeftPressed: root.move(root.LayoutMirroring.enabled ? 1 : -1)
                Keys.onRightPressed: root.move(root.LayoutMirroring.enabled ? -1 : 1)
                onClicked: root.chosen(index)

                Label {
                    anchors.centerIn: parent
                    color: tab.isChosen || tab.hovered ? Theme.steam : Theme.stock
                    font.pixelSize: 12
                    font.weight: tab.isChosen ? Font.DemiBold : Font.Medium
                    text: tab.modelData
                }
                FocusRing {
                    corner: 7
                    gap: -2
                    shown: tab.focused
                }
            }
        }
    }
}
