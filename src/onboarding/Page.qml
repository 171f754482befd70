// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Onboarding

/** What one step shows above the footer. */
Item {
    required property Onboarding model
    /** Its first control, if the keyboard begins there. */
    property Item firstStop: null
    /** Its picture is drawn, if that is waited for. */
    property bool isThere: true
    /** People read from the right. */
    readonly property bool isMirrored: Application.layoutDirection === Qt.RightToLeft

    /** Where something so wide begins that would begin at x for people who read from the left. */
    function placed(x: real, itemWidth: real): real {
        return isMirrored ? 880 - x - itemWidth : x
    }

    Accessible.ignored: true
}
