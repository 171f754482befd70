// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** A row that shows or hides what is under it. */
Pressable {
    id: root

    property bool open: false

    readonly property color ink: hovered || focused && Surroundings.usesKeys ? Theme.steam : Theme.stock

    Accessible.checkable: true
    Accessible.checked: open
    height: 28

    Symbol {
        id: chevron

        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        box: 14
        color: root.ink
        mirror: root.LayoutMirroring.enabled
        name: "chevron-right"
        rotation: root.open ? (root.LayoutMirroring.enabled ? -90 : 90) : 0
        stroke: 2
    }
    Label {
        anchors.left: chevron.right
        anchors.leftMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        color: root.ink
        font.weight: Font.DemiBold
        text: root.label
    }
    FocusRing {
        gap: 0
        shown: root.focused
    }
}
