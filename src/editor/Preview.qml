// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls
import TesselBroth.Editor

/** The look, live; or where a photo is asked for. It can be dragged out, and pictures and looks dropped on it. */
Pressable {
    id: root

    required property EditorModel model
    required property LivePicture picture

    readonly property bool asksPhoto: model.look.needsPhoto
    readonly property bool ringed: focused && Surroundings.usesKeys
    readonly property string dragUrl: model.exporter.dragUrl

    Accessible.description: asksPhoto ? "" : picture.frozen ? qsTr("Held still") : qsTr("Space holds it still")
    Drag.active: drag.active && dragUrl !== ""
    Drag.dragType: Drag.Automatic
    Drag.mimeData: ({ "text/uri-list": dragUrl })
    Drag.supportedActions: Qt.CopyAction
    Accessible.onPressAction: if (!asksPhoto) hold() // which the pointer does with the button in it
    activeFocusOnTab: true
    //: %1 is the name of the look, such as "Flow Ember"
    label: asksPhoto ? qsTr("Choose a photo") : qsTr("Preview: %1").arg(model.look.title)
    takesFocus: asksPhoto

    function hold() {
        picture.frozen = !picture.frozen
    }

    Keys.onSpacePressed: event => {
        event.accepted = !asksPhoto
        if (event.accepted)
            hold()
    }
    onClicked: {
        if (asksPhoto)
            model.look.choosePhoto()
    }

    LiveView {
        anchors.fill: parent
        picture: root.picture
        visible: !root.asksPhoto
    }
    Repeater {
        model: root.asksPhoto ? 1 : 0

        Image {
            id: placeholder

            anchors.fill: parent
            smooth: false
            source: `image://shapes/vignette/2B231D-1F1915-14100D-0A0806/78x${Math.ceil(height / 4)}/${2 * Screen.devicePixelRatio}`

            Dashes {
                anchors.fill: parent
                anchors.margins: 16
                color: root.hovered || drop.containsDrag ? Theme.amber : Theme.edge
            }
            Symbol {
                anchors.centerIn: parent
                box: 36
                color: Theme.amber
                name: "photo-plus"
                stroke: 1.25
            }
        }
    }
    // Over any picture: what is bright gets a dark ring, what is dark a bright one.
    Rectangle {
        anchors.fill: parent
        border.color: Theme.soot
        border.width: 4
        color: "transparent"
        visible: steam.visible
    }
    Rectangle {
        id: steam

        anchors.fill: parent
        border.color: root.ringed ? Theme.steam : Theme.amber
        border.width: 2
        color: "transparent"
        visible: root.ringed || drop.containsDrag
    }
    HoverHandler {
        id: hover
    }
    Rectangle {
        anchors.left: parent.left
        anchors.margins: 8
        anchors.top: parent.top
        color: Theme.shell
        height: 26
        radius: 6
        visible: !root.asksPhoto && (root.picture.frozen || hover.hovered || root.ringed)
        width: 26

        IconButton {
            Accessible.ignored: true // the preview itself does the same
            activeFocusOnTab: false
            color: root.picture.frozen ? Theme.amber : Theme.stock
            symbol: root.picture.frozen ? "live-photo-off" : "live-photo"
            takesFocus: false
            //: of an animation that was stopped, and that plays
            tip: root.picture.frozen ? qsTr("Let it move") : qsTr("Hold it still")

            onClicked: root.hold()
        }
    }
    DragHandler {
        id: drag

        enabled: !root.asksPhoto
        target: null
    }
    PointHandler {
        onActiveChanged: if (active && !root.asksPhoto) root.model.exporter.prepareDrag()
    }
    DropArea {
        id: drop

        anchors.fill: parent

        onDropped: drop => {
            root.model.look.takeDrop(drop.urls, drop.text)
            drop.accept(Qt.CopyAction)
        }
        onEntered: drag => drag.accepted = !root.Drag.active && root.model.look.acceptsDrop(drag.urls, drag.text)
    }
}
