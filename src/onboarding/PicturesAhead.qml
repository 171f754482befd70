// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls
import TesselBroth.Onboarding

/** Pictures of later steps, so that they are there when those are shown. */
Item {
    id: root

    required property Onboarding model
    property bool begun: false

    visible: false

    Item {
        height: 560
        width: 880

        TilePicture {
            source: root.begun ? root.model.examplePicture : ""
        }
    }
    Repeater {
        model: root.begun ? root.model.bowlPictures : []

        Item {
            id: tile

            required property string modelData

            height: 132
            width: 132

            TilePicture {
                source: tile.modelData
            }
        }
    }
}
