// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** A symbol that is a button, 26 points a side. */
Pressable {
    id: root

    required property string symbol
    property real box: 16
    property real stroke: 1.75
    property color color: Theme.stock
    property alias mirror: drawing.mirror
    /** What it opens is open. */
    property bool open: false

    Accessible.name: tip
    height: 26
    width: 26

    Rectangle {
        anchors.fill: parent
        color: root.pressed && !root.open ? Theme.pan : Theme.lift
        opacity: root.enabled && (root.hovered || root.pressed || root.open) ? 1 : 0
        radius: 6

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.hoverTime
                easing.type: Easing.OutQuad
            }
        }
    }
    Symbol {
        id: drawing

        anchors.centerIn: parent
        box: root.box
        color: {
            if (!root.enabled)
                return Theme.disabled
            if (root.pressed || root.open)
                return Theme.amber
            return (root.hovered || root.focused && Surroundings.usesKeys) && root.color === Theme.stock
                ? Theme.steam : root.color
        }
        name: root.symbol
        scale: root.pressed && !Theme.reducedMotion ? 0.92 : 1
        stroke: root.stroke
    }
    FocusRing {
        corner: 6
        gap: 1
        shown: root.focused
    }
}
