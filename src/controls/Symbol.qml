// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** A symbol in one colour, in a square box. */
Image {
    id: root

    /** A file's below :/symbols, or none. */
    property string name
    property color color: Theme.stock
    property real box: 16
    /** Width of the lines, in twenty-fourths of the box. */
    property real stroke: 1.75

    readonly property int pixels: Math.round(box * Screen.devicePixelRatio)

    height: pixels / Screen.devicePixelRatio
    source: name === "" ? "" : `image://symbols/${name}/${stroke}/${Theme.code(color)}`
    sourceSize.height: pixels
    sourceSize.width: pixels
    width: height
}
