// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** What is pressed with the pointer or a key: the behaviour of every button, without a look of its own. */
Item {
    id: root

    /** What a screen reader says. */
    property string label
    /** Shown while the pointer rests on it; for buttons without text. */
    property string tip
    readonly property bool containsPointer: area.containsMouse
    property bool hovered: containsPointer && enabled
    property bool pressed: (area.pressed && area.containsMouse) || keyed
    property bool focused: activeFocus
    property bool keyed: false
    /** Pressing it with the pointer moves the focus to it. */
    property bool takesFocus: true
    /** Return presses it, as Space does, and is not left to what it is in. */
    property bool takesReturn: true

    signal clicked
    /** The other button, or the menu key; at a point in the item. */
    signal menuRequested(real x, real y)

    function press() {
        Tips.press(root)
        clicked()
    }

    Accessible.description: enabled ? "" : qsTr("Not available now")
    Accessible.focusable: activeFocusOnTab || enabled && takesFocus
    Accessible.name: label
    Accessible.onPressAction: if (enabled) press()
    Accessible.onToggleAction: if (enabled) press() // what screen readers do to whatever can be checked
    Accessible.role: Accessible.Button
    activeFocusOnTab: enabled

    Keys.onPressed: event => {
        if (event.key === Qt.Key_Space || takesReturn && (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)) {
            keyed = !event.isAutoRepeat || keyed
            event.accepted = true
        } else if (event.key === Qt.Key_Menu || (event.key === Qt.Key_F10 && event.modifiers & Qt.ShiftModifier)) {
            menuRequested(width / 2, height)
            event.accepted = true
        }
    }
    Keys.onReleased: event => {
        if (keyed && !event.isAutoRepeat) {
            keyed = false
            event.accepted = true
            press()
        }
    }
    onActiveFocusChanged: {
        keyed = false
        if (activeFocus && Surroundings.usesKeys)
            Tips.enter(root, tip)
        else
            Tips.leave(root)
    }
    onEnabledChanged: if (!enabled) Tips.leave(root)

    MouseArea {
        id: area

        acceptedButtons: Qt.LeftButton | Qt.RightButton
        anchors.fill: parent
        hoverEnabled: true

        onClicked: mouse => {
            if (mouse.button === Qt.RightButton)
                root.menuRequested(mouse.x, mouse.y)
            else
                root.press()
        }
        onContainsMouseChanged: containsMouse ? Tips.enter(root, root.tip) : Tips.leave(root)
        onPressed: mouse => {
            Tips.press(root)
            if (mouse.button === Qt.LeftButton && root.takesFocus)
                root.forceActiveFocus(Qt.MouseFocusReason)
        }
    }
}
