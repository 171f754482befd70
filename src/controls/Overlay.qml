// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick

/** What opens above everything in what it fills and has the keyboard until it closes, which gives it back. */
FocusScope {
    property bool isOpen: false
    property Item focusedBefore: null

    function show() {
        focusedBefore = Window.activeFocusItem
        isOpen = true
    }

    function hide() {
        isOpen = false
        // A scope around this that had the focus itself would hand it on to this again.
        focus = false
        if (focusedBefore)
            focusedBefore.forceActiveFocus(Qt.PopupFocusReason)
    }

    visible: isOpen
}
