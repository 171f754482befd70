// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** A ring around what it is in, while that has the focus and keys are used. */
Rectangle {
    id: root

    required property bool shown
    property real gap: 2
    /** Of what is ringed. */
    property real corner: 7

    anchors {
        fill: parent
        margins: -gap - 2
    }
    border {
        color: Theme.steam
        width: 2
    }
    color: "transparent"
    radius: corner + gap + 2
    visible: shown && Surroundings.usesKeys
}
