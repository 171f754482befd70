// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** The ground of what stands by itself on the desktop or above the panel: stepped corners, a hairline, a shadow. */
Item {
    id: root

    /** In art pixels: panel 6, sheet 4, menu and tip 2, strip 12. */
    property alias radius: shape.radius
    property alias color: shape.color
    property alias blur: shadow.blur
    property alias drop: shadow.drop
    property alias shade: shadow.opaque
    property bool shadowed: Surroundings.composited

    Shadow {
        id: shadow

        radius: shape.radius * 2
        visible: root.shadowed
    }
    Stepped {
        id: shape

        anchors.fill: parent
        color: Theme.shell
        hairline: Theme.line
        radius: 6
    }
}
