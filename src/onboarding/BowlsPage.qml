// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls

/** Six looks to begin with, and whether they move. The bowls are one stop of the keyboard, on which arrows choose. */
Page {
    id: root

    readonly property int columns: 3

    function choose(index: int) {
        if (index < 0 || index >= bowls.count)
            return
        model.bowl = index
        bowls.itemAt(index).forceActiveFocus(Qt.OtherFocusReason)
    }

    Component.onCompleted: firstStop = bowls.itemAt(Math.max(0, model.bowl))

    PageTitle {
        text: root.model.title
        width: 290
        x: root.placed(56, width)
        lineTop: 72
    }
    Item {
        Accessible.name: root.model.title.replace("\n", " ")
        Accessible.role: Accessible.Grouping
        anchors.fill: parent

        Repeater {
            id: bowls

            model: root.model.bowlTitles

            BowlTile {
                required property int index
                required property string modelData

                activeFocusOnTab: index === Math.max(0, root.model.bowl) || activeFocus
                picture: root.model.bowlPictures[index]
                selected: root.model.bowl === index
                title: modelData
                x: root.placed(352 + 166 * (index % root.columns), width)
                y: 52 + 200 * Math.floor(index / root.columns)

                Keys.onDownPressed: root.choose(index + root.columns)
                Keys.onLeftPressed: root.choose(index + (root.isMirrored ? 1 : -1))
                Keys.onRightPressed: root.choose(index + (root.isMirrored ? -1 : 1))
                Keys.onUpPressed: root.choose(index - root.columns)
                onClicked: root.model.bowl = index
            }
        }
    }
    Segmented {
        current: root.model.motion
        label: qsTr("Wallpaper")
        symbols: ["live-photo-off", "live-photo"]
        textSize: 12
        titles: root.model.motionTitles
        width: 232
        x: root.placed(56, width)
        y: 384

        onChosen: index => root.model.motion = index
    }
}
