// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls
import TesselBroth.Editor

/** All palettes. One stop of the keyboard: arrows go from swatch to swatch. */
ListView {
    id: root

    required property PaletteEditor palette
    required property Questions questions
    /** What it scrolls in. */
    required property ScrollArea area
    /** What menus may cover. */
    required property Item overlay
    property int column: 0

    readonly property PaletteGrid grid: palette.grid

    function go(row: int, column: int) {
        currentIndex = row
        root.column = column
        area.show(currentItem.y, currentItem.height)
        const item = currentItem as PaletteRow
        item.focusColumn(column)
    }

    /** Goes up or down to the next row that has something to choose. */
    function goBy(step: int): bool {
        for (let row = currentIndex + step; row >= 0 && row < count; row += step) {
            const columns = grid.columnsIn(row)
            if (columns > 0) {
                go(row, Math.min(column, columns - 1))
                return true
            }
        }
        return false
    }

    function goAlong(step: int) {
        const next = column + step
        if (next >= 0 && next < grid.columnsIn(currentIndex))
            go(currentIndex, next)
        else if (goBy(step))
            go(currentIndex, step > 0 ? 0 : grid.columnsIn(currentIndex) - 1)
    }

    function showSelected() {
        if (activeFocus)
            return
        const selected = grid.selectedRow
        currentIndex = selected >= 0 ? selected : 1
        forceLayout()
        const item = currentItem as PaletteRow
        column = item && selected >= 0 ? item.selectedColumn : 0
    }

    /** Goes to what is chosen, or was. */
    function focusSelected() {
        showSelected()
        go(currentIndex, column)
    }

    Accessible.name: qsTr("Palettes")
    Accessible.role: Accessible.List
    Keys.onDownPressed: event => event.accepted = goBy(1)
    Keys.onLeftPressed: goAlong(LayoutMirroring.enabled ? 1 : -1)
    Keys.onRightPressed: goAlong(LayoutMirroring.enabled ? -1 : 1)
    Keys.onUpPressed: event => event.accepted = goBy(-1)
    boundsBehavior: Flickable.StopAtBounds
    cacheBuffer: 0
    highlightFollowsCurrentItem: false
    interactive: false
    keyNavigationEnabled: false
    model: grid
    reuseItems: true

    delegate: PaletteRow {
        required property int index

        currentColumn: ListView.isCurrentItem ? root.column : -1
        showsMore: root.grid.showsMore
        width: ListView.view.width

        onAddAsked: root.palette.create()
        onSelectedColumnChanged: if (selectedColumn >= 0) root.showSelected()
        onChosen: column => {
            root.currentIndex = index
            root.column = column
            root.palette.choose(swatches[column].kind, swatches[column].index)
        }
        onDeleteAsked: index => root.questions.askPaletteDeletion(index)
        onEditAsked: index => root.palette.edit(index)
        onMenuAsked: (swatch, index, x, y) => {
            menu.palette = index
            menu.openAt(swatch, x, y)
        }
        onMoreAsked: {
            root.currentIndex = index
            root.column = 0
            root.grid.showsMore = !root.grid.showsMore
        }
    }

    Component.onCompleted: showSelected()
    onHeightChanged: {
        showSelected()
        if (currentItem)
            area.show(currentItem.y, currentItem.height)
    }

    Connections {
        target: root.grid

        function onSelectedRowChanged() {
            root.showSelected()
        }
    }
    PopupMenu {
        id: menu

        property int palette: -1

        anchors.fill: parent
        label: root.palette.nameOf(palette)
        parent: root.overlay
        rows: [{ text: qsTr("Edit") }, { text: qsTr("Delete") }]

        onTriggered: index => {
            if (index === 0)
                root.palette.edit(palette)
            else
                root.questions.askPaletteDeletion(palette)
        }
    }
}
