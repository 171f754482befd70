// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls

/** The handle at the window's edge, in its true size: a pointer comes, the strip opens, and the pointer goes. */
Item {
    id: root

    required property bool isOnRight
    /** The picture in the handle. */
    required property string thumbnail

    readonly property real stripX: isOnRight ? width - 54 : 6
    readonly property real stripY: 148
    /** Where the pointer comes from, the handle, the first row, and where it goes. */
    readonly property list<point> stops: {
        const away = Qt.point(isOnRight ? stripX - 90 : stripX + 130, stripY + 270)
        return [away, Qt.point(stripX + 22, stripY + 22), Qt.point(stripX + 26, stripY + 74), away]
    }
    readonly property point pointerAt: {
        const last = Math.min(Math.floor(journey), stops.length - 2)
        const share = journey - last
        const from = stops[last]
        const to = stops[last + 1]
        return Qt.point(from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share)
    }

    /** What the pointer has done. With reduced motion it stays where it shows most. */
    property bool isHovered: Theme.reducedMotion
    property bool isOpen: Theme.reducedMotion
    property bool isAtRow: Theme.reducedMotion
    property real progress: Theme.reducedMotion ? 1 : 0
    /** How far the pointer has come along its stops. */
    property real journey: Theme.reducedMotion ? 2 : 0

    function grown(from: real, to: real): real {
        return Math.round(from + (to - from) * (isOpen ? Theme.spring(progress) : 1 - Theme.spring(1 - progress)))
    }

    Accessible.name: qsTr("The handle opening into its quick actions: new wallpaper, previous wallpaper, still or animated, open editor")
    Accessible.role: Accessible.Animation

    SequentialAnimation {
        loops: Animation.Infinite
        running: root.visible && !Theme.reducedMotion

        PauseAnimation {
            duration: 300
        }
        Travel {
            from: 0
            to: 1
        }
        PropertyAction {
            property: "isHovered"
            target: root
            value: true
        }
        PauseAnimation {
            duration: 200
        }
        PropertyAction {
            property: "isOpen"
            target: root
            value: true
        }
        NumberAnimation {
            duration: Theme.springTime
            property: "progress"
            target: root
            to: 1
        }
        Travel {
            duration: 300
            to: 2
        }
        PropertyAction {
            property: "isAtRow"
            target: root
            value: true
        }
        PauseAnimation {
            duration: 1200
        }
        PropertyAction {
            property: "isAtRow"
            target: root
            value: false
        }
        PropertyAction {
            property: "isHovered"
            target: root
            value: false
        }
        Travel {
            to: 3
        }
        PropertyAction {
            property: "isOpen"
            target: root
            value: false
        }
        NumberAnimation {
            duration: 400
            property: "progress"
            target: root
            to: 0
        }
    }
    Shell {
        height: root.grown(36, 240)
        radius: 12
        shadowed: true // here everything is blended
        visible: root.progress > 0
        width: root.grown(36, 48)
        x: root.grown(root.stripX + 6, root.stripX)
        y: root.grown(root.stripY + 6, root.stripY)
    }
    Repeater {
        model: ["arrows-shuffle", "arrow-back-up", "live-photo", "stack-2", "adjustments-horizontal"]

        Rectangle {
            id: row

            required property int index
            required property string modelData
            readonly property bool isLit: root.isAtRow && index === 0

            color: isLit ? Theme.lift : Theme.shell
            height: 34
            opacity: root.isOpen ? 1 : 0
            radius: 9
            visible: opacity > 0
            width: 34
            x: root.stripX + 7
            y: root.stripY + 53 + 36 * index

            Behavior on color {
                ColorAnimation {
                    duration: Theme.hoverTime
                    easing.type: Easing.OutQuad
                }
            }
            Behavior on opacity {
                enabled: !Theme.reducedMotion

                SequentialAnimation {
                    PauseAnimation {
                        duration: root.isOpen ? 30 * row.index : 0
                    }
                    NumberAnimation {
                        duration: Theme.fadeTime
                        easing.type: Easing.OutQuad
                    }
                }
            }

            Symbol {
                anchors.centerIn: parent
                box: 20
                color: row.isLit || row.modelData === "live-photo" ? Theme.amber : Theme.stripSymbol
                mirror: row.modelData === "arrow-back-up" && Application.layoutDirection === Qt.RightToLeft
                name: row.modelData
            }
        }
    }
    Item {
        height: 36
        width: 36
        x: root.stripX + 6
        y: root.stripY + 6

        Shadow {
            blur: 8
            drop: 3
            opaque: 0.4
            radius: 18
        }
        Item {
            height: 28
            width: 28
            x: 4
            y: 4

            TilePicture {
                source: root.thumbnail
            }
        }
        Art {
            anchors.fill: parent
            drawing: root.isHovered && !root.isOpen ? "handle/lit" : "handle/resting"
        }
    }
    Capsule {
        shown: root.isAtRow
        text: qsTr("New wallpaper")
        x: root.isOnRight ? root.stripX - 8 - width : root.stripX + 56
        y: root.stripY + 56
    }
    Art {
        drawing: "pointer"
        height: 24
        smooth: true
        width: 18
        x: root.pointerAt.x
        y: root.pointerAt.y
    }

    component Travel: NumberAnimation {
        duration: 500
        easing.type: Easing.InOutQuad
        property: "journey"
        target: root
    }
}
