// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** Two settings, beside a bowl of what was chosen. */
Page {
    id: root

    PageTitle {
        text: root.model.title
        width: 420
        x: root.placed(56, width)
        lineTop: 72
    }
    PageText {
        text: root.model.text
        width: 400
        x: root.placed(56, width)
        lineTop: 244
    }
    SettingRow {
        detail: root.model.opensAtLoginText
        on: root.model.opensAtLogin
        title: qsTr("Open at login")
        width: 400
        x: root.placed(56, width)
        y: 316

        onToggled: on => root.model.opensAtLogin = on
    }
    SettingRow {
        id: fresh

        detail: qsTr("Serve a new wallpaper on its own.")
        on: root.model.servesFresh
        //: a new wallpaper every hour or day
        title: qsTr("Fresh bowl")
        width: 400
        x: root.placed(56, width)
        y: 376

        onToggled: on => root.model.servesFresh = on
    }
    Segmented {
        current: root.model.interval
        label: fresh.title
        textSize: 12
        titles: root.model.intervalTitles
        visible: root.model.servesFresh
        width: 264
        x: root.placed(56, width)
        y: 426

        onChosen: index => {
            // With "Never" it goes, and would take the keyboard with it.
            const isUsed = focused
            root.model.interval = index
            if (isUsed && !visible)
                fresh.forceActiveFocus(Qt.OtherFocusReason)
        }
    }
    Item {
        height: 280
        width: 308
        x: root.placed(516, width)
        y: 152

        Item {
            clip: true
            height: 42
            width: 280
            x: 14
            y: 112

            TilePicture {
                height: 448
                source: root.model.brothPicture
            }
        }
        Art {
            drawing: "bowl"
            height: 182
            width: parent.width
            y: 98
        }
    }
    Art {
        drawing: "steam"
        height: 224
        width: 256
        x: root.placed(542, width)
        y: 36
    }
}
