// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** The title of a step, in lines. */
Text {
    id: root

    /** Where its first line begins; letters are in the middle of their lines. */
    property real lineTop
    property real size: 88

    Accessible.name: text.replace("\n", " ")
    Accessible.role: Accessible.Heading
    color: Theme.steam
    fontSizeMode: Text.HorizontalFit
    horizontalAlignment: Text.AlignLeft // so that it is mirrored, whatever the text is
    lineHeight: Math.round(0.86 * size)
    lineHeightMode: Text.FixedHeight
    minimumPixelSize: 40
    textFormat: Text.PlainText
    y: lineTop + Math.round((lineHeight - metrics.height) / 2)
    font {
        family: Theme.displayFamily
        pixelSize: size
    }

    FontMetrics {
        id: metrics

        font: root.font
    }
}
