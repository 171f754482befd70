// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** The rings of a tile around its picture, and the picture's stepped corners. */
Item {
    id: root

    required property bool hovered
    required property bool selected
    required property bool focused
    /** What the tile lies on. */
    property color ground: Theme.shell

    readonly property bool ringed: focused && Surroundings.usesKeys
    readonly property bool shown: hovered || selected || ringed
    /** Between ring and picture; amber where the outer ring is the keyboard's and the tile is selected too. */
    readonly property color gap: ringed && selected ? Theme.amber : ground

    default property alias picture: holder.data

    // A place to be seen until the picture has been drawn.
    Rectangle {
        anchors.fill: parent
        color: Theme.pan
    }
    Item {
        id: holder

        anchors.fill: parent
    }
    Stepped {
        anchors.fill: parent
        color: root.shown ? root.gap : root.ground
        part: Stepped.Frame
        radius: 2
        ring: {
            if (!root.shown)
                return "transparent"
            return root.ringed ? Theme.steam : root.selected ? Theme.amber : Theme.edge
        }
    }
}
