// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls

/**
 * A number whose digits stand in cells of one width, as wide as a "0", so that it does not tremble while it changes.
 * It is aligned at its trailing end.
 */
Item {
    id: root

    property string text
    property alias color: zero.color
    property alias font: zero.font

    Accessible.ignored: true
    implicitHeight: 16
    implicitWidth: cells.width

    Label {
        id: zero

        text: "0"
        visible: false
    }
    Row {
        id: cells

        // A number is read from left to right in every language.
        LayoutMirroring.enabled: false
        anchors.verticalCenter: parent.verticalCenter

        Repeater {
            model: root.text.length

            Item {
                required property int index
                readonly property string character: root.text.charAt(index)
                readonly property bool isDigit: character >= "0" && character <= "9"

                implicitHeight: glyph.implicitHeight
                implicitWidth: isDigit ? zero.implicitWidth : glyph.implicitWidth

                Label {
                    id: glyph

                    Accessible.ignored: true
                    anchors.horizontalCenter: parent.horizontalCenter
                    color: zero.color
                    elide: Text.ElideNone
                    font: zero.font
                    text: parent.character
                }
            }
        }
    }
}
