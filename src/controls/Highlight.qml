// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** What marks the chosen one of several: it springs to wherever that is. */
Rectangle {
    id: root

    /** Where it belongs. */
    required property real target
    property real from: 0
    property real to: 0
    property real progress: 1

    color: Theme.lift
    x: from + (to - from) * Theme.spring(progress)

    Component.onCompleted: to = target
    onTargetChanged: {
        from = x
        to = target
        if (Theme.reducedMotion || !visible)
            progress = 1
        else
            move.restart()
    }

    NumberAnimation {
        id: move

        duration: Theme.springTime
        from: 0
        property: "progress"
        target: root
        to: 1
    }
}
