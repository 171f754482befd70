// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls
import TesselBroth.Edge

/** The round handle, with the desktop's look in it. */
Item {
    id: root

    required property LivePicture thumb
    required property bool hovered
    /** There is only the handle, and it opens the strip; otherwise it opens the editor. */
    required property bool isAlone

    signal clicked
    signal menuRequested

    //: what a click on the handle does
    Accessible.description: isAlone ? qsTr("Shows quick actions") : qsTr("Opens the wallpaper editor")
    Accessible.name: isAlone ? "Tessel Broth" : qsTr("Open editor")
    Accessible.role: Accessible.Button
    Accessible.onPressAction: root.clicked()

    Shadow {
        blur: 8
        drop: 3
        opaque: 0.4
        radius: 18
    }
    HandleView {
        anchors.fill: parent
        hovered: root.hovered || area.containsMouse
        picture: root.thumb
        pressed: area.pressed
    }
    MouseArea {
        id: area

        acceptedButtons: Qt.LeftButton | Qt.RightButton
        anchors.fill: parent
        hoverEnabled: true

        onClicked: mouse => mouse.button === Qt.RightButton ? root.menuRequested() : root.clicked()
    }
}
