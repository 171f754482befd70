// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import TesselBroth.Controls
import TesselBroth.Editor

/** All of the editor. How large it is, and what it lies on, is for whoever shows it to say: 312 points wide. */
FocusScope {
    id: root

    required property EditorModel model
    /** What the edited look looks like. */
    required property LivePicture preview

    /** A short screen takes from the preview first, and then from the grids. */
    readonly property real previewHeight: Math.max(112, Math.min(176, height - 544))
    readonly property real tabsTop: 56 + previewHeight
    readonly property real contentTop: tabsTop + 36
    readonly property real contentHeight: height - 108 - contentTop
    readonly property bool isShort: height < 512
    readonly property real hairline: Math.max(1, Math.round(Screen.devicePixelRatio)) / Screen.devicePixelRatio

    signal closeRequested

    Accessible.name: qsTr("Tessel Broth")
    Accessible.role: Accessible.Pane
    LayoutMirroring.childrenInherit: true
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    focus: true

    // Where nothing in it has a use for that.
    Keys.onEscapePressed: closeRequested()
    Keys.onPressed: event => {
        event.accepted = true
        if (event.matches(StandardKey.Undo))
            model.look.undo()
        else if (event.matches(StandardKey.Redo))
            model.look.redo()
        else if (event.matches(StandardKey.Copy))
            model.look.copy()
        else if (event.matches(StandardKey.Paste))
            model.look.paste()
        else
            event.accepted = false
    }

    // What is pressed nowhere takes the focus from fields. A scope would hand it back to them.
    MouseArea {
        anchors.fill: parent

        onPressed: forceActiveFocus(Qt.MouseFocusReason)
    }
    Header {
        isExporting: exportMenu.isOpen
        model: root.model
        width: parent.width
        z: 30

        onCloseAsked: root.closeRequested()
        onExportAsked: button => exportMenu.openUnder(button)
    }
    Preview {
        height: root.previewHeight
        model: root.model
        picture: root.preview
        width: parent.width - 2 * root.hairline
        x: root.hairline // of the shell, which stays to be seen beside it
        y: 48
    }
    ExportProgress {
        exporter: root.model.exporter
        width: parent.width - 2 * root.hairline
        x: root.hairline
        y: 48 + root.previewHeight - height
        z: 10
    }
    TabBar {
        current: root.model.tab
        label: qsTr("What to edit")
        titles: root.model.tabTitles
        width: 288
        x: 12
        y: root.tabsTop

        onChosen: index => root.model.tab = index
    }
    Repeater {
        id: tabs

        // In the order of the model's tabs.
        model: ["ShapeTab.qml", "ColorTab.qml", "DitherTab.qml", "PresetsTab.qml"]

        TabLoader {
            required property int index
            required property string modelData

            file: modelData
            height: root.contentHeight
            isShown: root.model.tab === index
            properties: {
                const properties = { model: root.model, isShort: Qt.binding(() => root.isShort) }
                if (index === EditorModel.Color || index === EditorModel.Presets) {
                    properties.questions = questions
                    properties.overlay = overlay
                }
                return properties
            }
            width: root.width
            y: root.contentTop
        }
    }
    Timer {
        interval: 500
        repeat: true
        running: true

        onTriggered: {
            for (let i = 0; i < tabs.count; ++i)
                if ((tabs.itemAt(i) as TabLoader).loadAhead())
                    return
            stop()
        }
    }
    ApplyArea {
        look: root.model.look
        width: parent.width
        y: root.height - height
        z: 30
    }
    Item {
        id: overlay

        anchors.fill: parent
        z: 50

        PopupMenu {
            id: exportMenu

            anchors.fill: parent
            label: qsTr("Export PNG")
            rows: {
                const rows = []
                for (const item of root.model.exporter.items) {
                    const parts = item.split("  ·  ")
                    rows.push({ text: parts[0], detail: parts[1] ?? "" })
                }
                return rows
            }

            onTriggered: index => root.model.exporter.exportItem(index)
        }
    }
    HoverLabel {
        anchors.fill: parent
        z: 60
    }
    Questions {
        id: questions

        anchors.fill: parent
        model: root.model
    }
}
