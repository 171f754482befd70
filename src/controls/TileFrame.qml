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

    Stepped {
        anchors.fill: parent
        anchors.margins: -4
        color: root.ringed ? Theme.steam : root.selected ? Theme.amber : Theme.edge
        radius: 2
        visible: root.shown
    }
    Stepped {
        anchors.fill: parent
        anchors.margins: -2
        color: root.gap
        radius: 2
        visible: root.shown
    }
    Item {
        id: holder

        anchors.fill: parent
    }
    Stepped {
        anchors.fill: parent
        color: root.shown ? root.gap : root.ground
        part: Stepped.Corners
        radius: 2
    }
}
