// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** The soft shadow of the item that it fills. */
BorderImage {
    id: root

    property int blur: 14
    property int drop: 6
    property real opaque: 0.42
    /** Of the shape's corners, in points. */
    property int radius: 12

    readonly property int reach: blur + radius

    anchors {
        fill: parent
        bottomMargin: -blur - drop
        leftMargin: -blur
        rightMargin: -blur
        topMargin: -blur + drop
    }
    border {
        bottom: reach
        left: reach
        right: reach
        top: reach
    }
    source: `image://shapes/shadow/${Theme.code(Qt.rgba(0, 0, 0, opaque))}/${blur}x${radius}/1`
}
