// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls
import TesselBroth.Editor

/** The colours of the palette that is being edited, the open one's tracks and digits, and what can be done. */
Item {
    id: root

    required property PaletteEditor palette

    readonly property int count: chips.count
    readonly property ColorFieldModel field: palette.fields[palette.openIndex] ?? null
    readonly property color color: field ? field.color : "black"
    readonly property real hue: field ? field.hue : 0
    readonly property real saturation: field ? field.saturation : 0
    readonly property real brightness: field ? field.brightness : 0

    /** What a track gives from one end to the other. */
    function shades(steps: int, shade: var): list<color> {
        const list = []
        for (let i = 0; i < steps; ++i)
            list.push(shade(i / (steps - 1)))
        return list
    }

    function open(index: int) {
        if (index < 0 || index >= count)
            return
        palette.openIndex = index
        chips.itemAt(index).forceActiveFocus(Qt.OtherFocusReason)
    }

    height: buttons.y + buttons.height + 4
    width: 312

    Component.onCompleted: open(palette.openIndex)
    Keys.onEscapePressed: palette.cancel() // and no more than that

    Repeater {
        id: chips

        model: root.palette.fields

        ColorChip {
            id: chip

            required property int index
            required property ColorFieldModel modelData
            readonly property real share: 290 / root.count
            readonly property real begin: Math.round(index * share)

            Accessible.description: modelData.description
            activeFocusOnTab: open || activeFocus
            anchors.left: root.left
            anchors.leftMargin: 12 + begin
            color: modelData.color
            hex: modelData.hex
            label: modelData.name
            open: root.palette.openIndex === index
            width: Math.round((index + 1) * share) - begin - 2
            y: 4

            Keys.onLeftPressed: root.open(index - (LayoutMirroring.enabled ? -1 : 1))
            Keys.onRightPressed: root.open(index + (LayoutMirroring.enabled ? -1 : 1))
            onClicked: root.palette.openIndex = index
        }
    }

    component ComponentTrack: ColorTrack {
        required property int component
        property real begin: 0

        function write(value: real) {
            if (component === ColorFieldModel.Hue)
                root.field.hue = value
            else if (component === ColorFieldModel.Saturation)
                root.field.saturation = value
            else
                root.field.brightness = value
        }

        anchors.left: parent.left
        anchors.leftMargin: 12
        stepSize: 1

        onAdjusted: direction => root.field.adjust(component, direction)
        onDragStarted: begin = position
        onDraggedBy: spans => write(begin + spans)
        onEntered: text => {
            const number = Number.parseFloat(text.replace(",", "."))
            if (Number.isFinite(number))
                write(number / maximumValue)
        }
        onHighestAsked: write(1)
        onLowestAsked: write(0)
    }

    ComponentTrack {
        colors: root.shades(13, share => Qt.hsva(share, root.saturation, root.brightness, 1))
        component: ColorFieldModel.Hue
        label: qsTr("Hue")
        letter: qsTr("H", "hue")
        maximumValue: 360
        position: root.hue
        valueText: root.field ? root.field.hueText : ""
        y: 81
    }
    ComponentTrack {
        colors: root.shades(7, share => Qt.hsva(root.hue, share, root.brightness, 1))
        component: ColorFieldModel.Saturation
        label: qsTr("Saturation")
        letter: qsTr("S", "saturation")
        maximumValue: 100
        position: root.saturation
        valueText: root.field ? root.field.saturationText : ""
        y: 106
    }
    ComponentTrack {
        colors: root.shades(7, share => Qt.hsva(root.hue, root.saturation, share, 1))
        component: ColorFieldModel.Brightness
        label: qsTr("Brightness")
        letter: qsTr("B", "brightness")
        maximumValue: 100
        position: root.brightness
        valueText: root.field ? root.field.brightnessText : ""
        y: 131
    }
    Stepped {
        anchors.right: parent.right
        anchors.rightMargin: 12
        color: root.color
        hairline: Qt.tint(root.color, Theme.white(0.16))
        height: 36
        radius: 2
        width: 72
        y: 78
    }
    HexField {
        function accepts(text: string): bool {
            return root.field !== null && root.field.acceptsHex(text)
        }

        anchors.right: parent.right
        anchors.rightMargin: 12
        hex: root.field ? root.field.hex : ""
        //: six hexadecimal digits of a colour
        label: qsTr("Hex")
        width: 72
        y: 122

        onEntered: text => root.field.enterHex(text)
    }
    Row {
        anchors.left: parent.left
        anchors.leftMargin: 8
        spacing: 4
        y: 168

        IconButton {
            box: 15
            stroke: 2
            symbol: "minus"
            tip: qsTr("Remove the last colour")
            visible: root.palette.canRemove

            onClicked: root.palette.removeLastColor()
        }
        IconButton {
            box: 15
            stroke: 2
            symbol: "plus"
            tip: qsTr("Add a colour")
            visible: root.palette.canAdd

            onClicked: root.palette.addColor()
        }
    }
    Flow {
        id: buttons

        /** Longer words get less around them, so that all three stand side by side. */
        readonly property real padding: {
            const words = photo.textWidth + cancel.textWidth + save.textWidth
            return Math.max(4, Math.min(10, (room - 2 * spacing - words) / 6))
        }
        readonly property real room: 232

        anchors.right: parent.right
        anchors.rightMargin: 12
        spacing: 6
        width: Math.min(room, photo.width + cancel.width + save.width + 12)
        y: 168

        SmallButton {
            id: photo

            enabled: !root.palette.isReadingPhoto
            padding: buttons.padding
            //: a photo is being read; takes the colours of a palette from a photo
            text: root.palette.isReadingPhoto ? qsTr("Reading…") : qsTr("From photo")

            onClicked: root.palette.fromPhoto()
        }
        SmallButton {
            id: cancel

            padding: buttons.padding
            text: qsTr("Cancel")

            onClicked: root.palette.cancel()
        }
        SmallButton {
            id: save

            kind: SmallButton.Filled
            padding: buttons.padding
            text: qsTr("Save")

            onClicked: root.palette.save()
        }
    }
}
