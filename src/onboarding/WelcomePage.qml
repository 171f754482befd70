// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/** What this is. */
Page {
    id: root

    isThere: dissolve.isThere

    Dissolve {
        id: dissolve

        extent: "wide"
        isMirrored: root.isMirrored
        picture: root.model.welcomePicture
    }
    Image {
        height: 72
        smooth: false
        source: `image://shapes/mark/${4 * Screen.devicePixelRatio}`
        width: 72
        x: root.placed(56, width)
        y: 56
    }
    PageTitle {
        size: 112
        text: root.model.title
        width: 460
        x: root.placed(56, width)
        lineTop: 152
    }
    PageText {
        text: root.model.text
        width: 330
        x: root.placed(56, width)
        lineTop: 372
    }
}
