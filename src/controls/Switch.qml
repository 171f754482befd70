// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** The picture of a switch; what it lies in is pressed. */
Rectangle {
    id: root

    required property bool on
    /** The pointer is over what it lies in. */
    required property bool lit

    border.color: on ? Theme.amber : Theme.edge
    border.width: 1
    color: on ? Theme.ember : Theme.soot
    height: 20
    radius: 7
    width: 36

    Rectangle {
        // "On" is away from the label, which is on the left where people read from the right.
        readonly property bool atRight: root.on !== root.LayoutMirroring.enabled

        color: root.on ? Theme.amber : root.lit ? Theme.steam : Theme.stock
        height: 14
        radius: 4
        width: 14
        x: atRight ? 19 : 3
        y: 3

        Behavior on x {
            NumberAnimation {
                duration: Theme.hoverTime
                easing.type: Easing.OutQuad
            }
        }
    }
}
