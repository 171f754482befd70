// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** Hue, saturation or brightness of a colour: a track in the colours that it would give. */
Track {
    id: root

    /** "H" */
    required property string letter
    required property list<color> colors

    readonly property real trackWidth: width - 48
    readonly property int travel: Math.round(position * (trackWidth - 2))
    readonly property bool thick: hovered || dragged

    height: 14
    reach: 5
    span: trackWidth
    width: 202

    Label {
        anchors.left: parent.left
        color: root.thick ? Theme.steam : Theme.stock
        text: root.letter
        y: -1
    }
    Item {
        anchors.left: parent.left
        anchors.leftMargin: 16
        height: parent.height
        width: root.trackWidth

        Ramp {
            colors: root.colors
            height: 8
            width: parent.width
            y: 3
        }
        Rectangle {
            color: Theme.shell
            height: 14
            width: needle.width + 4
            x: needle.x - 2
        }
        Rectangle {
            id: needle

            color: root.dragged ? Theme.amber : Theme.steam
            height: root.thick ? 18 : 14
            width: root.dragged ? 4 : 2
            x: root.travel - (root.dragged ? 1 : 0)
            y: 7 - height / 2
        }
    }
    NumberText {
        anchors.right: parent.right
        color: root.dragged || root.typed !== "" ? Theme.amber : root.hovered ? Theme.steam : Theme.readout
        font.weight: root.dragged ? Font.DemiBold : Font.Normal
        text: root.typed === "" ? root.valueText : root.typed
        y: -1
    }
    FocusRing {
        corner: 4
        gap: 3
        shown: root.focused
    }
}
