// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Editor

/** The knobs of a tab, two in a row. */
Item {
    id: root

    property alias knobs: repeater.model

    height: Math.ceil(repeater.count / 2) * 44 - 12

    Repeater {
        id: repeater

        EditorKnob {
            required property int index
            required property KnobModel modelData
            readonly property bool isFirst: index % 2 === 0

            knob: modelData
            x: isFirst !== LayoutMirroring.enabled ? 12 : 162
            y: Math.floor(index / 2) * 44
        }
    }
}
