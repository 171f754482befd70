// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** The handle: what it does, and at which edge it is to be. The page has it there too. */
Page {
    id: root

    readonly property bool isOnRight: model.hasHandle ? model.edge === 1 : !isMirrored

    Dissolve {
        extent: "narrow"
        isMirrored: !root.isOnRight
        picture: root.model.examplePicture
    }
    Item {
        id: column

        width: 356
        x: root.isOnRight ? 56 : 824 - width

        PageTitle {
            text: root.model.title
            width: parent.width
            lineTop: 72
        }
        PageText {
            text: root.model.text
            width: 340
            anchors.left: parent.left
            lineTop: 248
        }
        Row {
            anchors.left: parent.left
            spacing: 12
            visible: root.model.hasHandle
            y: 384

            Label {
                id: question

                color: Theme.steam
                font.pixelSize: 13
                height: 28
                //: the beginning of a sentence that "Left" or "Right" on a button ends
                text: qsTr("Keep it on the")
            }
            Segmented {
                LayoutMirroring.childrenInherit: true
                LayoutMirroring.enabled: false // left is on the left for everybody
                current: root.model.edge
                label: question.text
                textSize: 12
                titles: root.model.edgeTitles
                width: 152

                onChosen: index => root.model.edge = index
            }
        }
    }
    HandleDemo {
        anchors.fill: parent
        isOnRight: root.isOnRight
        thumbnail: root.model.exampleThumbnail
        visible: root.model.hasHandle
    }
}
