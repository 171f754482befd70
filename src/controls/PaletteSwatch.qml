// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls

/** A palette with its name: its colours as blocks with dithered seams. */
Pressable {
    id: root

    enum Kind {
        BuiltIn,
        Mine, ///< can be edited and deleted
        Add ///< no palette yet
    }

    property string title
    property list<color> stops
    property int kind: PaletteSwatch.BuiltIn
    property bool selected: false

    readonly property bool offers: kind === PaletteSwatch.Mine && (hovered || focused && Surroundings.usesKeys)

    signal editAsked
    signal deleteAsked

    Accessible.checkable: kind !== PaletteSwatch.Add
    Accessible.checked: selected
    //: keys; E stays E
    Accessible.description: kind === PaletteSwatch.Mine ? qsTr("E edits, Delete deletes") : ""
    Accessible.role: kind === PaletteSwatch.Add ? Accessible.Button : Accessible.RadioButton
    height: 43
    hovered: (containsPointer || actions.containPointer) && enabled
    label: title
    scale: pressed ? Theme.tilePressScale : 1
    width: 88

    Behavior on scale {
        NumberAnimation {
            duration: Theme.pressTime
            easing.type: Easing.OutQuad
        }
    }

    Keys.onDeletePressed: event => {
        event.accepted = kind === PaletteSwatch.Mine
        if (event.accepted)
            deleteAsked()
    }
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_E || kind !== PaletteSwatch.Mine)
            return
        event.accepted = true
        editAsked()
    }

    TileFrame {
        focused: root.focused
        height: 24
        hovered: root.hovered && root.kind !== PaletteSwatch.Add
        selected: root.selected
        width: root.width

        Ramp {
            anchors.fill: parent
            blocks: true
            colors: root.stops
            visible: root.kind !== PaletteSwatch.Add
        }
        // A dark palette would have no edge on the panel.
        Stepped {
            anchors.fill: parent
            hairline: Theme.white(0.16)
            part: Stepped.Hairline
            radius: 2
            visible: root.kind !== PaletteSwatch.Add
        }
        Repeater {
            model: root.kind === PaletteSwatch.Add ? 1 : 0

            Rectangle {
                anchors.fill: parent
                color: Theme.lift

                Symbol {
                    anchors.centerIn: parent
                    box: 14
                    color: root.hovered ? Theme.steam : Theme.stock
                    name: "plus"
                    stroke: 2
                }
            }
        }
        Repeater {
            id: actions

            readonly property bool containPointer: count > 0 && (itemAt(0) as PaletteActions)?.containsPointer === true

            model: root.kind === PaletteSwatch.Mine ? 1 : 0

            PaletteActions {
                height: 24
                visible: root.offers
                width: 48
                x: root.LayoutMirroring.enabled ? 0 : root.width - width

                onDeleteAsked: root.deleteAsked()
                onEditAsked: root.editAsked()
            }
        }
    }
    Label {
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        color: root.selected ? Theme.amber : root.hovered ? Theme.steam : Theme.stock
        font.weight: root.selected ? Font.DemiBold : Font.Normal
        height: 14
        text: root.title
        width: parent.width
    }
}
