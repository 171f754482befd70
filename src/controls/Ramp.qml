// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** Colours mixed from left to right by a dither of art pixels. */
Image {
    id: root

    required property list<color> colors
    /** A block of the same length for each colour, instead of a ramp from the first to the last. */
    property bool blocks: false

    readonly property int columns: Math.ceil(width / 2)
    readonly property int rows: Math.ceil(height / 2)

    function codes(): string {
        let text = ""
        for (let i = 0; i < colors.length; ++i)
            text += (i > 0 ? "-" : "") + Theme.code(colors[i])
        return text
    }

    smooth: false
    source: columns > 0 && rows > 0 && colors.length > 0
        ? `image://shapes/${blocks ? "blocks" : "even"}/${codes()}/${columns}x${rows}/${Screen.devicePixelRatio}` : ""
}
