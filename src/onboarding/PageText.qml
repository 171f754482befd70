// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** What a step says, in a few lines. */
Text {
    id: root

    /** Where its first line begins; letters are in the middle of their lines. */
    property real lineTop

    Accessible.name: text
    Accessible.role: Accessible.StaticText
    color: Theme.stock
    horizontalAlignment: Text.AlignLeft // so that it is mirrored, whatever the text is
    lineHeight: 24
    lineHeightMode: Text.FixedHeight
    textFormat: Text.PlainText
    wrapMode: Text.WordWrap
    y: lineTop + Math.round((lineHeight - metrics.height) / 2)
    font {
        family: Theme.family
        hintingPreference: Font.PreferVerticalHinting
        pixelSize: 15
    }

    FontMetrics {
        id: metrics

        font: root.font
    }
}
