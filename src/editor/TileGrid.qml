// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/**
 * Tiles in columns of which one is chosen. It is one stop of the keyboard: arrows go from tile to tile. Delegates are
 * Pressables, which take part with `activeFocusOnTab: GridView.isCurrentItem || activeFocus`.
 */
GridView {
    id: root

    /** What it scrolls in. */
    required property ScrollArea area
    required property int columns

    function go(index: int) {
        if (index < 0 || index >= count)
            return
        currentIndex = index
        area.show(currentItem.y, currentItem.height)
        currentItem.forceActiveFocus(Qt.OtherFocusReason)
    }

    Accessible.role: Accessible.List
    Keys.onDownPressed: event => {
        const isLastRow = Math.floor(currentIndex / columns) === Math.floor((count - 1) / columns)
        event.accepted = !isLastRow
        go(isLastRow ? -1 : Math.min(currentIndex + columns, count - 1))
    }
    Keys.onLeftPressed: go(currentIndex - (LayoutMirroring.enabled ? -1 : 1))
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End
        if (event.accepted)
            go(event.key === Qt.Key_Home ? 0 : count - 1)
    }
    Keys.onRightPressed: go(currentIndex + (LayoutMirroring.enabled ? -1 : 1))
    Keys.onUpPressed: go(currentIndex - columns)
    boundsBehavior: Flickable.StopAtBounds
    cacheBuffer: 0
    highlightFollowsCurrentItem: false
    interactive: false
    keyNavigationEnabled: false
    width: cellWidth * columns
    x: 12
}
