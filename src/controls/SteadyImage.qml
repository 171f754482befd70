// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** A picture that stays until the next one has been drawn. */
Item {
    id: root

    required property string address
    property bool upper: false

    function load() {
        const shown = upper ? second : first
        const next = upper ? first : second
        next.address = shown.address === address ? "" : address
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

    component Picture: TilePicture {
        property string address

        source: address
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
