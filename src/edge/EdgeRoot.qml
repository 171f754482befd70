// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls
import TesselBroth.Edge

/** All that stands at the screen's edge: the handle, the strip that opens from it, the editor. */
Item {
    id: root

    required property EdgeState edge
    required property QuickActions actions
    /** The menu that opens beside the strip: `rows`, `run(row)`, `close()` and the signal `opened`. */
    required property var presets
    required property LivePicture thumb
    required property LivePicture preview
    /** What the editor works on; its QML is loaded when it first opens. */
    required property QtObject editor

    /** What is shown, for desktops that blend no windows: frames, and the radii of their corners in art pixels. */
    readonly property var shapes: {
        const parts = []
        if (handle.visible)
            parts.push({ frame: frameOf(handle), radius: 9 })
        if (shell.visible)
            parts.push({ frame: frameOf(shell), radius: shell.radius })
        if (capsule.visible)
            parts.push({ frame: frameOf(capsule), radius: 6 })
        if (presetsMenu.isOpen)
            parts.push({ frame: presetsMenu.cardFrame, radius: 2 })
        return parts
    }

    readonly property bool springs: Surroundings.composited && !Theme.reducedMotion
    readonly property rect wanted: edge.isOpen ? edge.editorFrame : edge.isQuick ? edge.quickFrame : edge.handleFrame
    /** The shell springs from one frame to the other; how far it has come, from 0 to 1. */
    property rect origin: edge.handleFrame
    property rect destination: edge.handleFrame
    property real progress: 1
    property bool wasOpen: false
    property bool wasQuick: false

    signal handleClicked
    signal menuRequested
    signal closeRequested

    function frameOf(item: Item): rect {
        return Qt.rect(item.x, item.y, item.width, item.height)
    }

    function between(from: real, to: real): real {
        return Math.round(from + (to - from) * Theme.spring(progress))
    }

    /** From one mode to another it springs; where the place of a mode has changed, it is there at once. */
    function go() {
        const isOtherMode = wasOpen !== edge.isOpen || wasQuick !== edge.isQuick
        wasOpen = edge.isOpen
        wasQuick = edge.isQuick
        origin = frameOf(shell)
        destination = wanted
        spring.stop()
        progress = 1
        if (isOtherMode && springs)
            spring.start()
    }

    onWantedChanged: go()

    Binding {
        property: "inUse"
        target: root.thumb
        value: root.edge.hovering || root.edge.isQuick
    }

    Connections {
        function onModeChanged() {
            if (root.edge.isOpen)
                editorLoader.open()
        }

        target: root.edge
    }
    NumberAnimation {
        id: spring

        duration: Theme.springTime
        from: 0
        property: "progress"
        target: root
        to: 1
    }

    Shell {
        id: shell

        readonly property bool isNeeded: root.edge.isQuick || root.edge.isOpen || spring.running

        height: root.between(root.origin.height, root.destination.height)
        radius: root.edge.isOpen ? 6 : 12
        visible: isNeeded
        width: root.between(root.origin.width, root.destination.width)
        x: root.between(root.origin.x, root.destination.x)
        y: root.between(root.origin.y, root.destination.y)
    }

    Repeater {
        id: rows

        model: root.actions

        QuickButton {
            id: row

            isHovered: root.edge.quickHover === index
            opacity: root.edge.isQuick ? 1 : 0
            visible: opacity > 0
            x: root.edge.quickFrame.x + 7
            y: root.edge.quickFrame.y + 53 + 36 * index

            onClicked: root.actions.run(index)

            Behavior on opacity {
                enabled: root.springs

                SequentialAnimation {
                    PauseAnimation {
                        duration: root.edge.isQuick ? 30 * row.index : 0
                    }
                    NumberAnimation {
                        duration: Theme.fadeTime
                        easing.type: Easing.OutQuad
                    }
                }
            }
        }
    }

    Capsule {
        id: capsule

        readonly property QuickButton row: rows.itemAt(shownRow) as QuickButton
        /** The row that it names, or named until it began to fade. */
        property int shownRow: -1

        faint: row !== null && !row.isEnabled
        shown: root.edge.isQuick && root.edge.quickHover >= 0
        text: row !== null ? row.label : ""
        x: root.edge.isOnRight ? root.edge.quickFrame.x - 8 - width : root.edge.quickFrame.x + root.edge.quickFrame.width + 8
        y: root.edge.quickFrame.y + 56 + 36 * shownRow

        Connections {
            function onQuickHoverChanged() {
                if (root.edge.quickHover >= 0)
                    capsule.shownRow = root.edge.quickHover
            }

            target: root.edge
        }
    }

    PopupMenu {
        id: presetsMenu

        LayoutMirroring.childrenInherit: true
        LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
        anchors.fill: parent
        label: qsTr("Presets")
        margin: 6
        rows: root.presets.rows ?? []

        onClosed: root.presets.close()
        onTriggered: index => root.presets.run(index)

        Connections {
            function onOpened() {
                const strip = root.edge.quickFrame
                const x = root.edge.isOnRight ? strip.x - 6 - presetsMenu.cardFrame.width : strip.x + strip.width + 6
                const y = strip.y + strip.height - 80
                presetsMenu.openBeside(x, y)
            }

            target: root.presets
        }
        Connections {
            function onModeChanged() {
                presetsMenu.close()
            }

            target: root.edge
        }
    }

    Handle {
        id: handle

        height: root.edge.handleFrame.height
        hovered: root.edge.hovering
        isAlone: !root.edge.isQuick
        thumb: root.thumb
        visible: !root.edge.isOpen && (root.edge.isQuick || !root.edge.isHandleHidden)
        width: root.edge.handleFrame.width
        x: root.edge.handleFrame.x
        y: root.edge.handleFrame.y

        onClicked: root.handleClicked()
        onMenuRequested: root.menuRequested()
    }

    // The editor stands where it will be from the start, and the shell opens on it.
    Item {
        clip: spring.running
        height: shell.height
        visible: editorLoader.opacity > 0
        width: shell.width
        x: shell.x
        y: shell.y

        Loader {
            id: editorLoader

            function open() {
                if (status === Loader.Null)
                    setSource("qrc:/qt-project.org/imports/TesselBroth/Editor/Editor.qml", { model: root.editor, preview: root.preview })
                unloading.stop()
            }

            focus: root.edge.isOpen
            height: root.edge.editorFrame.height
            opacity: root.edge.isOpen ? 1 : 0
            width: root.edge.editorFrame.width
            x: root.edge.editorFrame.x - shell.x
            y: root.edge.editorFrame.y - shell.y

            onOpacityChanged: {
                if (opacity === 0)
                    unloading.start()
            }

            Behavior on opacity {
                enabled: root.springs

                SequentialAnimation {
                    PauseAnimation {
                        duration: root.edge.isOpen ? 120 : 0
                    }
                    NumberAnimation {
                        duration: Theme.fadeTime
                        easing.type: Easing.OutQuad
                    }
                }
            }

            Connections {
                function onCloseRequested() {
                    root.closeRequested()
                }

                target: editorLoader.item
                ignoreUnknownSignals: true
            }
            // Its pictures are given back once it is clear that it stays closed.
            Timer {
                id: unloading

                interval: 600

                onTriggered: editorLoader.source = ""
            }
        }
    }
}
