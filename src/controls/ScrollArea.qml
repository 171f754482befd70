// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/**
 * What scrolls, with a fade where it is cut off and a bar at its trailing edge. The view itself, a Flickable of any
 * kind, is made inside by whoever uses it, and named. The wheel scrolls it from anywhere in here.
 */
Item {
    id: root

    required property Flickable view
    /** Where the bar begins. */
    property real barTop: 4
    /** Where the view ends; what is below stands still. */
    property real cut: height
    property color ground: Theme.shell
    /** What a tile needs around it to be seen with its ring and clear of a fade. */
    property real clearance: 20

    clip: cut === height // all of it scrolls, below the view too

    readonly property real start: view.originY - view.topMargin
    readonly property real end: Math.max(start, view.originY + view.contentHeight + view.bottomMargin - view.height)
    readonly property bool scrolls: end > start + 0.5
    /** Of a fade. */
    readonly property string cells: `${Math.ceil((width - 10) / 2)}x8/${Screen.devicePixelRatio}`

    function scrollTo(y: real, smoothly: bool) {
        const goal = Math.max(start, Math.min(end, y))
        glide.stop()
        if (smoothly && !Theme.reducedMotion) {
            glide.to = goal
            glide.start()
        } else {
            view.contentY = goal
        }
    }

    function scrollBy(distance: real, smoothly: bool) {
        scrollTo((glide.running ? glide.to : view.contentY) + distance, smoothly)
    }

    /** Scrolls no further than needed to show a stretch of the content. */
    function show(y: real, height: real) {
        const above = y - clearance
        const below = y + height + clearance - view.height
        if (view.contentY > above)
            scrollTo(above, false)
        else if (view.contentY < below)
            scrollTo(below, false)
    }

    /** The same for an item in it, if that scrolls. */
    function showItem(item: Item) {
        let above = item
        while (above && above !== view.contentItem && above !== root)
            above = above.parent
        if (above && (above !== root || cut === height))
            show(item.mapToItem(root, 0, 0).y - view.y + view.contentY, item.height)
    }

    Connections {
        enabled: Surroundings.usesKeys && root.visible
        target: root.Window.window

        function onActiveFocusItemChanged() {
            const item = root.Window.activeFocusItem
            if (item)
                root.showItem(item)
        }
    }
    NumberAnimation {
        id: glide

        duration: Theme.hoverTime
        easing.type: Easing.OutQuad
        property: "contentY"
        target: root.view
    }
    WheelHandler {
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        enabled: root.scrolls

        onWheel: event => {
            if (event.pixelDelta.y !== 0)
                root.scrollBy(-event.pixelDelta.y, false)
            else
                root.scrollBy(-event.angleDelta.y * 0.6, Math.abs(event.angleDelta.y) >= 120)
        }
    }
    DragHandler {
        property real begin: 0

        acceptedDevices: PointerDevice.TouchScreen
        enabled: root.scrolls
        target: null
        xAxis.enabled: false

        onActiveChanged: begin = root.view.contentY
        onActiveTranslationChanged: if (active) root.scrollTo(begin - activeTranslation.y, false)
    }
    Image {
        height: 16
        smooth: false
        source: root.width < 12 ? "" : `image://shapes/top/${Theme.code(root.ground)}/${root.cells}`
        visible: root.view.contentY > root.start + 0.5
        width: parent.width - 10 // clear of the hairline and the bar
        x: LayoutMirroring.enabled ? 8 : 2
        z: 20
    }
    Image {
        height: 16
        smooth: false
        source: root.width < 12 ? "" : `image://shapes/bottom/${Theme.code(root.ground)}/${root.cells}`
        visible: root.view.contentY < root.end - 0.5
        width: parent.width - 10 // clear of the hairline and the bar
        x: LayoutMirroring.enabled ? 8 : 2
        y: root.cut - 16
        z: 20
    }
    MouseArea {
        id: bar

        readonly property real track: root.cut - root.barTop - 4
        readonly property real length: Math.max(24, track * root.view.height / (root.end - root.start + root.view.height))
        property real grabbed: 0

        anchors.right: parent.right
        height: root.cut
        hoverEnabled: true
        preventStealing: true
        visible: root.scrolls
        width: 10
        z: 21

        onPositionChanged: mouse => {
            if (pressed)
                root.scrollTo(root.start + (mouse.y - grabbed - root.barTop) / (track - length) * (root.end - root.start), false)
        }
        onPressed: mouse => {
            const onThumb = mouse.y >= thumb.y && mouse.y < thumb.y + thumb.height
            grabbed = onThumb ? mouse.y - thumb.y : length / 2
            positionChanged(mouse)
        }

        Rectangle {
            id: thumb

            readonly property bool wide: bar.containsMouse || bar.pressed

            anchors.right: parent.right
            anchors.rightMargin: wide ? 1 : 2
            color: wide ? Theme.edge : Theme.bar
            height: bar.length
            width: wide ? 6 : 4
            y: root.barTop + (bar.track - bar.length) * (root.view.contentY - root.start) / Math.max(1, root.end - root.start)
        }
    }
}
