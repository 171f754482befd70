// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls

/**
 * A menu that opens above what it fills and stays inside it; it scrolls where there are too many rows. They are objects
 * with `text`, and maybe `detail` (set off from the text), `checked`, `separated` (a line before it) and `disabled`.
 */
Overlay {
    id: root

    property string label
    property var rows: []
    property real margin: 12
    /** The row under the pointer, or where the keyboard is; -1 for none. */
    property int current: -1
    readonly property rect cardFrame: Qt.rect(card.x, card.y, card.width, card.height)
    readonly property bool isMarked: rows.some(row => row.checked !== undefined)

    signal triggered(int index)
    signal closed

    /** Opens it under an item. */
    function openUnder(item: Item) {
        const spot = item.mapToItem(root, 0, 0)
        open(spot.x + item.width / 2 - card.width / 2, spot.y + item.height + 3, spot.y - 3)
    }

    /** Opens it at a point of an item. */
    function openAt(item: Item, x: real, y: real) {
        const spot = item.mapToItem(root, x, y)
        open(LayoutMirroring.enabled ? spot.x - card.width : spot.x, spot.y, spot.y)
    }

    /** Opens it with its corner at a point, higher up where it does not fit. */
    function openBeside(x: real, y: real) {
        open(x, y, Math.max(y, height - 6))
    }

    /** Opens it with its corner at a point, or with its lower corner at `above` where that does not fit. */
    function open(x: real, y: real, above: real) {
        card.x = Math.round(Math.max(margin, Math.min(width - card.width - margin, x)))
        const fits = y + card.height + 6 <= height
        card.y = Math.round(fits ? y : Math.max(6, Math.min(above, height - 6) - card.height))
        current = -1
        show()
        forceActiveFocus(Qt.PopupFocusReason)
        if (Surroundings.usesKeys)
            go(0, 1)
    }

    function close() {
        if (!isOpen)
            return
        hide()
        closed()
    }

    function trigger(index: int) {
        if (index < 0 || rows[index].disabled === true)
            return
        close()
        triggered(index)
    }

    /** Goes to the first row that can be chosen, from an index on in steps. */
    function go(index: int, step: int) {
        for (let i = 0; i < rows.length; ++i) {
            const row = ((index + i * step) % rows.length + rows.length) % rows.length
            if (rows[row].disabled !== true) {
                current = row
                const item = items.itemAt(row)
                item.forceActiveFocus(Qt.OtherFocusReason)
                view.contentY = Math.max(item.y + item.height - view.height, Math.min(item.y, view.contentY))
                return
            }
        }
    }

    function goToLetter(letter: string) {
        for (let i = 1; i <= rows.length; ++i) {
            const row = (Math.max(current, 0) + (current < 0 ? i - 1 : i)) % rows.length
            if (rows[row].text.toLowerCase().startsWith(letter) && rows[row].disabled !== true) {
                go(row, 1)
                return
            }
        }
    }

    Accessible.name: label
    Accessible.role: Accessible.PopupMenu
    z: 50

    Keys.onPressed: event => {
        event.accepted = true
        switch (event.key) {
        case Qt.Key_Escape:
            close()
            break
        case Qt.Key_Down:
        case Qt.Key_Tab:
            go(current + 1, 1)
            break
        case Qt.Key_Up:
        case Qt.Key_Backtab:
            go(current < 0 ? rows.length - 1 : current - 1, -1)
            break
        case Qt.Key_Home:
        case Qt.Key_PageUp:
            go(0, 1)
            break
        case Qt.Key_End:
        case Qt.Key_PageDown:
            go(rows.length - 1, -1)
            break
        case Qt.Key_Return:
        case Qt.Key_Enter:
        case Qt.Key_Space:
            trigger(current)
            break
        default:
            if (event.text.length === 1)
                goToLetter(event.text.toLowerCase())
        }
    }
    onWidthChanged: close()
    onHeightChanged: close()

    MouseArea {
        acceptedButtons: Qt.AllButtons
        anchors.fill: parent
        hoverEnabled: true

        onPressed: root.close()
        onWheel: root.close()
    }
    Shell {
        id: card

        color: Theme.pan
        height: Math.min(column.height + 12, root.height - 12)
        radius: 2
        shadowed: true
        width: Math.min(root.width - 2 * root.margin, column.widest + 12)

        Flickable {
            id: view

            anchors.fill: parent
            anchors.margins: 6
            boundsBehavior: Flickable.StopAtBounds
            clip: contentHeight > height
            contentHeight: column.height

            Column {
                id: column

                readonly property real widest: {
                    let most = 100
                    for (let i = 0; i < children.length; ++i) { // which tell when they come; the repeater counts ahead
                        const row = children[i] as PopupMenuRow
                        if (row)
                            most = Math.max(most, row.implicitWidth)
                    }
                    return most
                }

                width: view.width

                Repeater {
                    id: items

                    model: root.rows

                    PopupMenuRow {
                        required property int index
                        required property var modelData

                        detail: modelData.detail ?? ""
                        enabled: modelData.disabled !== true
                        isCurrent: index === root.current
                        isMarked: root.isMarked
                        mark: modelData.checked
                        separated: modelData.separated === true
                        text: modelData.text
                        width: column.width

                        onEntered: root.current = index
                        onExited: if (root.current === index) root.current = -1
                        onPressed: root.trigger(index)
                    }
                }
            }
        }
    }
}
