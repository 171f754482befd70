// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/**
 * Six hexadecimal digits of a colour. What is written counts once it is a whole colour, or when it is left; what is
 * none shows as wrong and changes nothing.
 */
Field {
    id: root

    property string hex
    /** A colour was written. */
    signal entered(string text)

    /** Whether a text means a colour; whoever knows better replaces it. */
    function accepts(text: string): bool {
        return isWhole(text)
    }

    function isWhole(text: string): bool {
        return /^\s*#?\s*([0-9a-f]\s*){6}$/i.test(text)
    }

    function finish() {
        if (text !== hex && accepts(text))
            entered(text)
        text = hex
        wrong = false
    }

    font.letterSpacing: 0.44
    font.pixelSize: 11
    height: 26
    maximumLength: 32

    Component.onCompleted: text = hex
    Keys.onEscapePressed: event => {
        event.accepted = text !== hex
        text = hex
        wrong = false
    }
    onAccepted: {
        if (accepts(text))
            finish()
        else
            wrong = true
    }
    onFocusedChanged: focused ? focusAll() : finish()
    onHexChanged: if (!focused || !accepts(text)) text = hex
    // However it was written: assistive technology sets it without a key.
    onTextChanged: {
        wrong = text !== hex && !/^\s*#?\s*([0-9a-f]\s*){0,6}$/i.test(text)
        if (text !== hex && isWhole(text))
            entered(text)
    }
}
