// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls
import TesselBroth.Editor

/** The user's presets. */
ScrollArea {
    id: root

    required property EditorModel model
    required property Questions questions
    /** What menus may cover. */
    required property Item overlay
    required property bool isShort

    readonly property PresetList presets: model.presets

    view: grid

    Item {
        clip: true
        height: root.height
        width: parent.width

        SmallButton {
            symbol: "plus"
            text: qsTr("Save as preset")
            width: 288
            x: 12
            y: -38 - grid.contentY

            onClicked: root.questions.askPresetName()
        }
        TileGrid {
            id: grid

            Accessible.name: qsTr("Your presets")
            area: root
            bottomMargin: hint.height + 12
            cellHeight: 108
            cellWidth: 147
            columns: 2
            height: root.height
            model: root.presets
            topMargin: 42

            delegate: PresetTile {
                id: tile

                required property int index
                required property string name
                required property string presetId
                required picture
                required animated
                required selected

                activeFocusOnTab: GridView.isCurrentItem || activeFocus
                title: name

                Keys.onDeletePressed: root.presets.remove(presetId)
                onClicked: {
                    grid.currentIndex = index
                    root.presets.choose(index)
                }
                onMenuRequested: (x, y) => {
                    grid.currentIndex = index
                    menu.presetId = presetId
                    menu.openAt(tile, x, y)
                }
            }
        }
        Label {
            id: hint

            color: Theme.hint
            elide: Text.ElideNone
            font.weight: Font.Normal
            height: implicitHeight
            lineHeight: 16
            lineHeightMode: Text.FixedHeight
            text: root.presets.hint
            width: 288
            wrapMode: Text.Wrap
            x: 12
            y: grid.count === 0 ? 42 : grid.originY + grid.contentHeight + 4 - grid.contentY
        }
    }
    PopupMenu {
        id: menu

        property string presetId

        anchors.fill: parent
        label: qsTr("Preset")
        parent: root.overlay
        rows: [{ text: qsTr("Rename...") }, { text: qsTr("Delete") }]

        onTriggered: index => {
            if (index === 0)
                root.questions.askNewName(presetId)
            else
                root.presets.remove(presetId)
        }
    }
}
