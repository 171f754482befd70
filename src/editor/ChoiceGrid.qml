// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls
import TesselBroth.Editor

/** The tiles of patterns or dithers. The chosen one is in sight when it appears. */
TileGrid {
    id: root

    required property TileModel tiles
    required property real tileWidth
    required property real pictureHeight

    function showChosen() {
        currentIndex = tiles.currentRow
        forceLayout()
        if (currentItem)
            area.show(currentItem.y, currentItem.height)
    }

    model: tiles
    topMargin: 4

    delegate: Tile {
        required property int index
        required title
        required picture
        required livePicture
        required selected

        activeFocusOnTab: GridView.isCurrentItem || activeFocus
        pictureHeight: root.pictureHeight
        width: root.tileWidth

        onClicked: {
            root.currentIndex = index
            root.tiles.choose(index)
        }
    }

    onHeightChanged: showChosen()
}
