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
        const item = kind === PaletteGrid.More ? more : columns.itemAt(column)
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

    Label {
        anchors.left: parent.left
        anchors.leftMargin: 12
        color: Theme.steam
        font.weight: Font.DemiBold
        height: 26
        text: root.header
        visible: root.kind === PaletteGrid.Yours || root.kind === PaletteGrid.Family
        y: root.kind === PaletteGrid.Yours ? 2 : 0
    }
    IconButton {
        activeFocusOnTab: false // the tile for a new palette does the same
        anchors.right: parent.right
        anchors.rightMargin: 12
        box: 15
        stroke: 2
        symbol: "plus"
        tip: qsTr("New palette")
        visible: root.kind === PaletteGrid.Yours
        y: 2

        onClicked: root.addAsked()
    }
    Pressable {
        id: more

        readonly property color ink: hovered || focused && Surroundings.usesKeys ? Theme.steam : Theme.stock

        Accessible.checkable: true
        Accessible.checked: root.showsMore
        activeFocusOnTab: root.currentColumn >= 0 || activeFocus
        anchors.left: parent.left
        anchors.leftMargin: 12
        height: 28
        label: root.header
        visible: root.kind === PaletteGrid.More
        width: 288
        y: 4

        onClicked: root.moreAsked()

        Symbol {
            id: chevron

            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            box: 14
            color: more.ink
            mirror: root.LayoutMirroring.enabled
            name: "chevron-right"
            rotation: root.showsMore ? (root.LayoutMirroring.enabled ? -90 : 90) : 0
            stroke: 2
        }
        Label {
            anchors.left: chevron.right
            anchors.leftMargin: 4
            anchors.verticalCenter: parent.verticalCenter
            color: more.ink
            font.weight: Font.DemiBold
            text: root.header
        }
        FocusRing {
            gap: 0
            shown: more.focused
        }
    }
    Repeater {
        id: columns

        // As many for every row: the list gives rows that went out of sight to those that come.
        model: 3

        PaletteSwatch {
            id: swatch

            required property int index
            readonly property var palette: root.swatches[index] ?? null

            activeFocusOnTab: visible && root.currentColumn === index || activeFocus
            anchors.left: parent.left
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
