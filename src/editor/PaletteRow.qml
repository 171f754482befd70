// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls
import TesselBroth.Editor

/** A row of the list of palettes: up to three swatches, or a header. */
Item {
    id: root

    required property int kind
    required property string header
    required property var swatches
    required property int selectedColumn
    /** The column that the keyboard is at, or -1 if it is in another row. */
    required property int currentColumn
    required property bool showsMore

    readonly property bool isSwatches: kind === PaletteGrid.Swatches || kind === PaletteGrid.FirstCoreSwatches
    readonly property real lead: kind === PaletteGrid.FirstCoreSwatches ? 12 : 4

    signal addAsked
    signal moreAsked
    signal chosen(int column)
    signal editAsked(int index)
    signal deleteAsked(int index)
    signal menuAsked(Item swatch, int index, real x, real y)

    function focusColumn(column: int) {
        const item = kind === PaletteGrid.More ? more.itemAt(0) : columns.itemAt(column)
        if (item)
            item.forceActiveFocus(Qt.OtherFocusReason)
    }

    height: {
        switch (kind) {
        case PaletteGrid.Yours:
            return 30
        case PaletteGrid.FirstCoreSwatches:
            return 60
        case PaletteGrid.More:
            return 32
        case PaletteGrid.Family:
            return 26
        default:
            return 52
        }
    }

    // Only what a row is made of is made: rows come into sight while the list scrolls.
    Repeater {
        model: root.kind === PaletteGrid.Yours || root.kind === PaletteGrid.Family ? 1 : 0

        Label {
            anchors.left: root.left
            anchors.leftMargin: 12
            color: Theme.steam
            font.weight: Font.DemiBold
            height: 26
            text: root.header
            y: root.kind === PaletteGrid.Yours ? 2 : 0
        }
    }
    Repeater {
        model: root.kind === PaletteGrid.Yours ? 1 : 0

        IconButton {
            activeFocusOnTab: false // the tile for a new palette does the same
            anchors.right: root.right
            anchors.rightMargin: 12
            box: 15
            stroke: 2
            symbol: "plus"
            tip: qsTr("New palette")
            y: 2

            onClicked: root.addAsked()
        }
    }
    Repeater {
        id: more

        model: root.kind === PaletteGrid.More ? 1 : 0

        MoreButton {
            activeFocusOnTab: root.currentColumn >= 0 || activeFocus
            anchors.left: root.left
            anchors.leftMargin: 12
            label: root.header
            open: root.showsMore
            width: 288
            y: 4

            onClicked: root.moreAsked()
        }
    }
    Repeater {
        id: columns

        // As many for every row: the list gives rows that went out of sight to those that come.
        model: root.isSwatches ? 3 : 0

        PaletteSwatch {
            id: swatch

            required property int index
            readonly property var palette: root.swatches[index] ?? null

            activeFocusOnTab: visible && root.currentColumn === index || activeFocus
            anchors.left: root.left
            anchors.leftMargin: 12 + 100 * index
            kind: palette ? palette.kind : PaletteSwatch.BuiltIn
            selected: root.selectedColumn === index
            stops: palette ? palette.stops : []
            title: palette ? palette.title : ""
            visible: palette !== null
            y: root.lead

            onClicked: root.chosen(index)
            onDeleteAsked: root.deleteAsked(palette.index)
            onEditAsked: root.editAsked(palette.index)
            onMenuRequested: (x, y) => {
                if (kind === PaletteSwatch.Mine)
                    root.menuAsked(swatch, palette.index, x, y)
            }
        }
    }
}
