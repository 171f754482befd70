// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick

/** A dashed outline of art pixels, 6 points long and 6 apart. */
Item {
    id: root

    required property color color

    component Dash: Rectangle {
        color: root.color
    }

    Repeater {
        model: 2 * Math.max(0, Math.ceil(root.width / 12))

        Dash {
            required property int index
            readonly property int place: Math.floor(index / 2)

            height: 2
            width: Math.min(6, root.width - x)
            x: 12 * place
            y: index % 2 === 0 ? 0 : root.height - 2
        }
    }
    Repeater {
        model: 2 * Math.max(0, Math.ceil(root.height / 12))

        Dash {
            required property int index
            readonly property int place: Math.floor(index / 2)

            height: Math.min(6, root.height - y)
            width: 2
            x: index % 2 === 0 ? 0 : root.width - 2
            y: 12 * place
        }
    }
}
