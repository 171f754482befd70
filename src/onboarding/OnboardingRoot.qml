// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls
import TesselBroth.Onboarding

/** The introduction: a page for each step above a footer that leads through them. 880 x 560 points, or drawn smaller. */
FocusScope {
    id: root

    required property Onboarding model

    signal closeRequested
    signal quitRequested
    signal moveRequested

    /** The keyboard goes to what is to be chosen on a page, or else onwards. */
    function showStep() {
        page.setSource(["WelcomePage.qml", "LadlePage.qml", "BowlsPage.qml", "WarmPage.qml"][model.step], { model: model })
        const first = (page.item as Page).firstStop
        const stop = first ? first : footer.forward
        stop.forceActiveFocus(Qt.OtherFocusReason)
    }

    Accessible.description: model.text
    Accessible.name: model.title.replace("\n", " ")
    Accessible.role: Accessible.Pane
    LayoutMirroring.childrenInherit: true
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    focus: true

    Component.onCompleted: showStep()
    Keys.onEscapePressed: closeRequested()
    Keys.onPressed: event => {
        event.accepted = true
        if ((event.key === Qt.Key_Return || event.key === Qt.Key_Enter) && !event.isAutoRepeat)
            model.goForward()
        else if (event.matches(StandardKey.Back))
            model.goBack()
        else if (event.matches(StandardKey.Close))
            closeRequested()
        else if (event.matches(StandardKey.Quit))
            quitRequested()
        else
            event.accepted = false
    }

    Connections {
        function onStepChanged() {
            root.showStep()
        }

        target: root.model
    }
    Rectangle {
        anchors.fill: parent
        color: Theme.soot
    }
    Item {
        height: 560
        scale: Math.min(1, root.width / width)
        transformOrigin: Item.TopLeft
        width: 880

        // The window is moved by all of its ground.
        MouseArea {
            property point begin

            anchors.fill: parent

            onPositionChanged: mouse => {
                if (Math.hypot(mouse.x - begin.x, mouse.y - begin.y) >= Application.styleHints.startDragDistance)
                    root.moveRequested()
            }
            onPressed: mouse => begin = Qt.point(mouse.x, mouse.y)
        }
        Loader {
            id: page

            anchors.fill: parent

            onLoaded: fade.restart()

            NumberAnimation on opacity {
                id: fade

                duration: Theme.fadeTime
                easing.type: Easing.OutQuad
                from: 0
                running: false
                to: 1
            }
        }
        PicturesAhead {
            readonly property Page shown: page.item as Page
            readonly property bool mayBegin: shown && shown.isThere

            model: root.model

            onMayBeginChanged: begun = true // the first page's comes first
        }
        Footer {
            id: footer

            model: root.model
            width: parent.width
            y: 484
        }
        Rectangle {
            anchors.fill: close
            color: Theme.soot
            radius: 6
        }
        IconButton {
            id: close

            anchors.right: parent.right
            anchors.rightMargin: 12
            symbol: "x"
            tip: qsTr("Close")
            y: 12

            onClicked: root.closeRequested()
        }
        HoverLabel {
            anchors.fill: parent
            z: 60
        }
    }
}
