// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls
import TesselBroth.Editor

/** Palettes, or the one that is being edited, and the knobs of colour. */
Item {
    id: root

    required property EditorModel model
    required property Questions questions
    /** What menus may cover. */
    required property Item overlay
    /** Not high enough for the knobs to stand still: all of it scrolls. */
    required property bool isShort

    readonly property bool isEditing: model.palette.isEditing
    readonly property real footTop: area.height - 122

    onIsEditingChanged: if (!isEditing && visible && Surroundings.usesKeys) list.focusSelected()

    // It begins a little higher than other tabs', so that the first header is as near to the tabs as tiles are.
    ScrollArea {
        id: area

        barTop: 12
        cut: root.isShort ? height : root.footTop - 12
        height: root.height + 8
        view: root.isEditing ? edit : list
        width: root.width
        y: -8

        Item {
            clip: true
            height: area.cut
            width: parent.width

            PaletteList {
                id: list

                area: area
                bottomMargin: root.isShort ? 130 : 0
                enabled: !root.isEditing // what cannot be seen takes no keys
                height: area.cut
                overlay: root.overlay
                palette: root.model.palette
                questions: root.questions
                visible: !root.isEditing
                width: parent.width
            }
            Flickable {
                id: edit

                bottomMargin: root.isShort ? 130 : 0
                boundsBehavior: Flickable.StopAtBounds
                contentHeight: contentItem.childrenRect.y + contentItem.childrenRect.height
                height: area.cut
                interactive: false
                visible: root.isEditing
                width: parent.width

                Repeater {
                    model: root.isEditing ? 1 : 0

                    PaletteEdit {
                        palette: root.model.palette
                        width: edit.width
                        y: 8
                    }
                }
            }
        }
        Item {
            height: 110
            width: parent.width
            y: root.isShort ? area.view.originY + area.view.contentHeight + 8 - area.view.contentY : root.footTop

            Knobs {
                id: knobs

                knobs: root.model.look.colorKnobs
                width: parent.width
            }
            ToggleRow {
                //: a verb: turns the palette's order round
                label: qsTr("Invert")
                on: root.model.look.invert
                width: 288
                x: 12
                y: 84

                onToggled: on => root.model.look.invert = on
            }
        }
    }
}
