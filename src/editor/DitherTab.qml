// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls
import TesselBroth.Editor

/** Dithers and their knobs. */
ScrollArea {
    id: root

    required property EditorModel model
    /** Not high enough for the knobs to stand still: all of it scrolls. */
    required property bool isShort

    readonly property real footTop: height - 12 - knobs.height

    cut: isShort ? height : footTop - 12
    view: grid

    Item {
        clip: true
        height: root.cut
        width: parent.width

        ChoiceGrid {
            id: grid

            Accessible.name: qsTr("Dithers")
            area: root
            bottomMargin: root.isShort ? knobs.height + 20 : -5 // a row ends with a gap
            cellHeight: 57
            cellWidth: 148
            columns: 2
            height: root.cut
            pictureHeight: 32
            tileWidth: 140
            tiles: root.model.look.dithers
        }
    }
    Knobs {
        id: knobs

        knobs: root.model.look.ditherKnobs
        width: parent.width
        y: root.isShort ? grid.originY + grid.contentHeight + 8 - grid.contentY : root.footTop
    }
}
