// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls
import TesselBroth.Editor

/** Patterns, the photo's button, and the knobs of the shape. */
ScrollArea {
    id: root

    required property EditorModel model
    /** Not high enough for the knobs to stand still: all of it scrolls. */
    required property bool isShort

    readonly property real footHeight: (photo.visible ? 38 : 0) + knobs.height
    readonly property real footTop: height - 12 - footHeight
    // No higher than leaves whole tiles, or their upper parts, at rest.
    readonly property real gridHeight: footTop - 12 - Math.max(0, (footTop - 16) % 72 - 40)

    cut: isShort ? height : gridHeight
    view: grid

    Item {
        clip: true
        height: root.cut
        width: parent.width

        ChoiceGrid {
            id: grid

            Accessible.name: qsTr("Shapes")
            area: root
            bottomMargin: root.isShort ? root.footHeight + 20 : -5 // a row ends with a gap
            cellHeight: 72
            cellWidth: 74
            columns: 4
            height: root.cut
            pictureHeight: 44
            tileWidth: 66
            tiles: root.model.look.patterns
        }
    }
    Item {
        height: root.footHeight
        width: parent.width
        y: root.isShort ? grid.originY + grid.contentHeight + 8 - grid.contentY : root.footTop

        SmallButton {
            id: photo

            enabled: !root.model.look.isReading
            symbol: "photo"
            symbolBox: 15
            symbolStroke: 1.75
            //: a photo is being read
            text: root.model.look.isReading ? qsTr("Reading…") : qsTr("Change photo")
            visible: root.model.look.showsPhoto
            width: 288
            x: 12

            onClicked: root.model.look.choosePhoto()
        }
        Knobs {
            id: knobs

            anchors.bottom: parent.bottom
            knobs: root.model.look.shapeKnobs
            width: parent.width
        }
    }
}
