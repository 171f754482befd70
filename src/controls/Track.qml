// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/**
 * A value between two limits, shown as how far a dither fills a track, and what dragging, keys and wheel ask of it. A
 * drag is relative: how far the pointer goes counts, not where it is. What a request makes of the value is decided by
 * whoever shows it here.
 */
Item {
    id: root

    /** What a screen reader says. */
    property string label
    property string valueText
    /** Where the value lies between its limits, from 0 to 1. */
    property real position: 0
    /** For screen readers, and typed numbers are between them. */
    property real value: shownValue()
    property real minimumValue: 0
    property real maximumValue: 1
    property real stepSize: 0

    /** How far the pointer goes from one limit to the other. */
    property real span: width
    /** How far above and below it can be grabbed, too. */
    property real reach: 0

    property bool hovered: area.containsMouse && enabled
    property bool dragged: area.dragging
    property bool focused: activeFocus
    /** What was typed so far. */
    property string typed

    signal dragStarted
    /** How far the pointer is from where the drag began, in spans; right is more. */
    signal draggedBy(real widths)
    signal dragEnded
    /** A step up (1) or down (-1). */
    signal adjusted(int direction)
    signal lowestAsked
    signal highestAsked
    signal resetAsked
    signal entered(string text)

    Accessible.focusable: true
    Accessible.name: label
    Accessible.onDecreaseAction: adjusted(-1)
    Accessible.onIncreaseAction: adjusted(1)
    Accessible.role: Accessible.Slider
    activeFocusOnTab: enabled

    Keys.onPressed: event => {
        event.accepted = true
        switch (event.key) {
        case Qt.Key_Left:
        case Qt.Key_Down:
            adjusted(-1)
            break
        case Qt.Key_Right:
        case Qt.Key_Up:
            adjusted(1)
            break
        case Qt.Key_Home:
            lowestAsked()
            break
        case Qt.Key_End:
            highestAsked()
            break
        case Qt.Key_Backspace:
        case Qt.Key_Delete:
            if (typed === "")
                resetAsked()
            else
                typed = typed.slice(0, -1)
            break
        case Qt.Key_Return:
        case Qt.Key_Enter:
            enterTyped()
            break
        case Qt.Key_Escape:
            event.accepted = typed !== ""
            typed = ""
            break
        default:
            event.accepted = event.text.length === 1 && "0123456789.,-".includes(event.text)
            if (event.accepted && typed.length < 8)
                typed += event.text
        }
    }

    function shownValue() {
        return Number.parseFloat(valueText.replace(",", "."))
    }

    function enterTyped() {
        if (typed !== "")
            entered(typed)
        typed = ""
    }

    onActiveFocusChanged: enterTyped()
    // Assistive technology writes the property itself.
    onValueChanged: if (Number.isFinite(value) && value !== shownValue()) entered(value.toString())

    MouseArea {
        id: area

        property real start: 0
        property bool dragging: false

        hoverEnabled: true
        preventStealing: true

        anchors {
            bottomMargin: -root.reach
            fill: parent
            topMargin: -root.reach
        }

        function end() {
            if (dragging)
                root.dragEnded()
            dragging = false
        }

        onCanceled: end()
        onDoubleClicked: {
            end()
            root.resetAsked()
        }
        onPositionChanged: mouse => {
            if (!pressed)
                return
            const moved = mouse.x - start
            if (!dragging && Math.abs(moved) >= 1) {
                dragging = true
                root.dragStarted()
            }
            if (dragging)
                root.draggedBy(moved / root.span)
        }
        onPressed: mouse => {
            start = mouse.x
            root.forceActiveFocus(Qt.MouseFocusReason)
        }
        onReleased: end()
        onWheel: wheel => {
            // Without the key it scrolls what the track is in.
            wheel.accepted = (wheel.modifiers & Qt.ControlModifier) !== 0
            if (wheel.accepted && wheel.angleDelta.y !== 0)
                root.adjusted(Math.sign(wheel.angleDelta.y))
        }
    }
}
