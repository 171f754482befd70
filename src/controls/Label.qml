// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** One line of text in the interface's typeface, as high as it is told to be and cut off where it does not fit. */
Text {
    color: Theme.stock
    elide: Text.ElideRight
    height: 16
    horizontalAlignment: Text.AlignLeft // so that it is mirrored, whatever the text is
    textFormat: Text.PlainText
    verticalAlignment: Text.AlignVCenter
    font {
        family: Theme.family
        hintingPreference: Font.PreferVerticalHinting
        pixelSize: 11
        weight: Font.Medium
    }
}
