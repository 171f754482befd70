// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls
import TesselBroth.Editor

/** What the editor asks and tells, one at a time. */
Sheet {
    id: root

    enum Subject {
        Nothing, ///< something is told
        PresetName,
        NewName,
        PaletteDeletion
    }

    required property EditorModel model
    property int subject: Questions.Nothing
    property string presetId
    property int palette: -1

    function tell(title: string, text: string) {
        subject = Questions.Nothing
        asksText = false
        firstKind = SmallButton.Filled
        firstTitle = qsTr("OK")
        otherTitle = ""
        root.title = title
        root.text = text
        open()
    }

    function askText(subject: int, title: string, text: string, firstTitle: string, answer: string) {
        root.subject = subject
        asksText = true
        firstKind = SmallButton.Filled
        otherTitle = qsTr("Cancel")
        root.title = title
        root.text = text
        root.firstTitle = firstTitle
        root.answer = answer
        open()
    }

    function askPresetName() {
        askText(Questions.PresetName, qsTr("Save as preset"),
                qsTr("A name for this shape, colours, dither and sliders. It stays in Presets, one click from the menu bar."),
                qsTr("Save"), model.presets.suggestedName())
    }

    function askNewName(presetId: string) {
        root.presetId = presetId
        askText(Questions.NewName, qsTr("Rename preset"), "", qsTr("Rename"), model.presets.nameOf(presetId))
    }

    function askPaletteDeletion(palette: int) {
        root.palette = palette
        subject = Questions.PaletteDeletion
        asksText = false
        firstKind = SmallButton.Alarm
        firstTitle = qsTr("Delete")
        otherTitle = qsTr("Cancel")
        title = model.palette.deleteQuestion(palette)
        text = model.palette.deleteInformation
        open()
    }

    onAccepted: answer => {
        if (subject === Questions.PresetName)
            model.presets.save(answer)
        else if (subject === Questions.NewName)
            model.presets.rename(presetId, answer)
        else if (subject === Questions.PaletteDeletion)
            model.palette.remove(palette)
    }

    Connections {
        target: root.model

        function onTold(title: string, text: string) {
            root.tell(title, text)
        }
    }
}
