// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** A picture as large as the window that dissolves towards the text. */
Item {
    id: root

    required property string picture
    /** How much of it is seen: wide or narrow. */
    required property string extent
    /** The text is on the right. */
    required property bool isMirrored
    readonly property bool isThere: drawn.status === Image.Ready

    height: 560
    width: 880

    // The first one of all takes a second: it comes up softly.
    TilePicture {
        id: drawn

        opacity: root.isThere ? 1 : 0
        source: root.picture

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.springTime
                easing.type: Easing.OutQuad
            }
        }
    }
    Art {
        anchors.fill: parent
        drawing: `dissolve/${root.extent}`
        mirror: root.isMirrored
    }
}
