// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/** A picture that stays until the next one has been drawn. */
Item {
    id: root

    /** Address of the picture, empty for none. */
    property string address
    property bool upper: false
    readonly property bool ready: (upper ? second : first).status === Image.Ready

    function load() {
        const shown = upper ? second : first
        const next = upper ? first : second
        if (address === "" || shown.address === address)
            next.address = ""
        if (address === "")
            shown.address = ""
        else if (shown.address !== address)
            next.address = address
    }

    function turnTo(image: Picture) {
        if (image.status !== Image.Ready || image.address !== address)
            return
        upper = image === second
        const old = upper ? first : second
        old.address = ""
    }

    Component.onCompleted: load()
    onAddressChanged: load()

    component Picture: Image {
        property string address

        anchors.fill: parent
        asynchronous: true
        smooth: false
        source: address
        sourceSize.height: Math.round(height * Screen.devicePixelRatio)
        sourceSize.width: Math.round(width * Screen.devicePixelRatio)
    }

    Picture {
        id: first

        visible: !root.upper

        onStatusChanged: root.turnTo(first)
    }
    Picture {
        id: second

        visible: root.upper

        onStatusChanged: root.turnTo(second)
    }
}
