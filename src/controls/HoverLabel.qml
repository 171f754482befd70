// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** Where tips are shown: above everything in what it fills, under the control that they belong to. */
Item {
    id: root

    readonly property Item target: Tips.target && Tips.target.Window.window === Window.window ? Tips.target : null

    function place() {
        const spot = target.mapToItem(root, 0, 0)
        const centre = spot.x + target.width / 2
        tip.x = Math.round(Math.max(6, Math.min(width - tip.width - 6, centre - tip.width / 2)))
        const under = spot.y + target.height + 4
        tip.y = Math.round(under + tip.height > height - 6 ? spot.y - 4 - tip.height : under)
    }

    onTargetChanged: {
        if (target) {
            label.text = Tips.text // kept while it fades out
            place()
        }
    }

    Shell {
        id: tip

        Accessible.ignored: true // the control says it itself
        blur: 8
        color: Theme.pan
        drop: 3
        height: 24
        opacity: root.target ? 1 : 0
        radius: 2
        shade: 0.4
        shadowed: true
        visible: opacity > 0
        width: label.implicitWidth + 20

        Behavior on opacity {
            NumberAnimation {
                duration: 100
            }
        }

        Label {
            id: label

            anchors.centerIn: parent
            color: Theme.steam
        }
    }
}
