// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls
import TesselBroth.Editor

/** Still or animated, what that means, and the button that puts the look on the desktop. */
Item {
    id: root

    required property LookEditor look

    height: 108

    Rectangle {
        color: Theme.lift
        height: 1
        width: parent.width
    }
    Segmented {
        current: root.look.motion ? 1 : 0
        //: what is chosen between still and animated
        label: qsTr("Wallpaper")
        symbols: ["live-photo-off", "live-photo"]
        //: "Still": a wallpaper that does not move
        titles: [qsTr("Still"), qsTr("Animated")]
        width: 288
        x: 12
        y: 10

        onChosen: index => root.look.motion = index === 1
    }
    Label {
        Accessible.focusable: false
        Accessible.name: text
        Accessible.role: Accessible.StaticText
        color: Theme.hint
        font.weight: Font.Normal
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 10
        text: root.look.motionText
        width: 288
        x: 12
        y: 44
    }
    SmallButton {
        kind: SmallButton.Filled
        text: root.look.applyTitle
        width: 288
        x: 12
        y: 70

        onClicked: root.look.apply()
    }
}
