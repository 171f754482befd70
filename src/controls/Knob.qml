// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** A slider with its name and value above it. */
Track {
    id: root

    readonly property int travel: Math.round(position * (width - 2))
    readonly property real needleStart: travel - (dragged ? 1 : 0)
    readonly property real needleWidth: dragged ? 4 : 2

    height: 32
    width: 138

    Label {
        color: !root.enabled ? Theme.disabled : root.hovered || root.dragged ? Theme.steam : Theme.stock
        text: root.label

        anchors {
            left: parent.left
            right: readout.left
            rightMargin: 4
        }
    }
    NumberText {
        id: readout

        anchors.right: parent.right
        color: {
            if (!root.enabled)
                return Theme.disabled
            if (root.dragged || root.typed !== "")
                return Theme.amber
            return root.hovered ? Theme.steam : Theme.readout
        }
        font.weight: root.dragged ? Font.DemiBold : Font.Normal
        text: root.typed === "" ? root.valueText : root.typed
    }

    // More is to the right in every language, and the pieces stand where they do by x alone.
    Ramp {
        colors: Theme.trackOff
        height: 8
        width: root.width
        y: 20
    }
    Item {
        clip: true
        height: 8
        visible: root.enabled
        width: Math.max(0, root.needleStart - 2)
        y: 20

        Ramp {
            colors: Theme.trackOn
            height: 8
            width: root.width
        }
    }
    Rectangle {
        color: Theme.shell
        height: 8
        visible: root.enabled
        width: root.needleWidth + 4
        x: root.needleStart - 2
        y: 20
    }
    Rectangle {
        color: root.dragged ? Theme.amber : Theme.steam
        height: root.dragged ? 18 : root.hovered ? 16 : 12
        visible: root.enabled
        width: root.needleWidth
        x: root.needleStart
        y: 24 - height / 2
    }
    FocusRing {
        corner: 4
        gap: 4
        shown: root.focused
    }
}
