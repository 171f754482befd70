// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** A button with a text, and a symbol before or behind it if one is named. */
Pressable {
    id: root

    enum Kind {
        Plain,
        Filled,
        Alarm ///< destroys something; in alerts only
    }

    property string text
    property string symbol
    property real symbolBox: 14
    property real symbolStroke: 2
    /** The symbol points to where the button leads: it is behind the text, and mirrored with it. */
    property bool symbolLeads: false
    property int kind: SmallButton.Plain
    property real padding: 10
    property real textSize: 11

    readonly property color ink: {
        if (!enabled)
            return Theme.disabledText
        if (kind === SmallButton.Filled)
            return Theme.amber
        if (kind === SmallButton.Alarm)
            return Theme.alarmText
        return hovered || pressed ? "white" : Theme.plainText
    }
    readonly property color ground: {
        if (!enabled)
            return Theme.plainPressed
        if (kind === SmallButton.Filled)
            return pressed ? Theme.emberPressed : hovered ? Theme.emberHover : Theme.ember
        if (kind === SmallButton.Alarm)
            return pressed ? Theme.alarmPressed : hovered ? Theme.alarmHover : Theme.alarm
        return pressed ? Theme.plainPressed : hovered ? Theme.plainHover : Theme.plain
    }

    readonly property real gap: symbolLeads ? 8 : 6
    /** A symbol at the end needs less room beside it than text does. */
    readonly property real paddings: 2 * padding - (symbolLeads ? 4 : 0)

    /** What the text needs, without padding. */
    readonly property real textWidth: Math.ceil(words.implicitWidth)

    height: 26
    implicitWidth: paddings + textWidth + (symbol === "" ? 0 : symbolBox + gap)
    label: text
    scale: pressed ? Theme.pressScale : 1
    width: implicitWidth

    Behavior on scale {
        NumberAnimation {
            duration: Theme.pressTime
            easing.type: Easing.OutQuad
        }
    }

    Rectangle {
        anchors.fill: parent
        color: root.ground
        radius: 7

        Behavior on color {
            ColorAnimation {
                duration: Theme.hoverTime
                easing.type: Easing.OutQuad
            }
        }
    }
    Row {
        id: row

        anchors.centerIn: parent
        anchors.horizontalCenterOffset: root.symbolLeads ? 2 : 0
        layoutDirection: root.symbolLeads ? Qt.RightToLeft : Qt.LeftToRight
        spacing: root.gap

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            box: root.symbolBox
            color: root.ink
            mirror: root.symbolLeads && root.LayoutMirroring.enabled
            name: root.symbol
            stroke: root.symbolStroke
            visible: name !== ""
        }
        Label {
            id: words

            color: root.ink
            text: root.text
            width: Math.min(implicitWidth, root.width - (root.implicitWidth - Math.ceil(implicitWidth)))

            font {
                pixelSize: root.textSize
                weight: Font.DemiBold
            }

            onTextChanged: if (root.visible) change.restart()

            NumberAnimation on opacity {
                id: change

                duration: Theme.labelTime
                easing.type: Easing.OutQuad
                from: 0
                running: false
                to: 1
            }
        }
    }
    FocusRing {
        shown: root.focused
    }
}
