// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/** Makes a tab when it is first wanted, or ahead of that, and keeps it. */
Loader {
    id: root

    required property string file
    /** What the tab is made with. */
    required property var properties
    required property bool isShown

    /** Makes it while nothing else is to be done, so that it is there at once when it is wanted. False if it is there. */
    function loadAhead(): bool {
        if (status !== Loader.Null)
            return false
        asynchronous = true
        setSource(file, properties)
        return true
    }

    function show() {
        if (status === Loader.Ready)
            return
        source = "" // what has begun cannot be hurried without losing its properties
        asynchronous = false
        setSource(file, properties)
    }

    enabled: isShown // what cannot be seen takes no keys
    visible: isShown

    Component.onCompleted: if (isShown) show()
    onIsShownChanged: if (isShown) show()
}
