// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
pragma Singleton

import QtQuick
import TesselBroth.Controls

/** Colours, type, radii and motion. Sizes are in points, times in milliseconds. */
QtObject {
    readonly property color soot: "#0A0806" // wells
    readonly property color shell: "#14100D" // panel, strip, capsule
    readonly property color pan: "#1F1915" // menus, sheets, tips
    readonly property color lift: highContrast ? "#4A3D32" : "#2B231D" // hover, chosen tab
    readonly property color line: highContrast ? "#B9AB9C" : "#3A3028" // hairlines
    readonly property color well: highContrast ? "#B9AB9C" : "#241D18" // hairline of a well
    readonly property color edge: highContrast ? "#F6EDE2" : "#7A6A5C" // hover ring, border of a switch
    readonly property color bar: highContrast ? "#F6EDE2" : "#5B4D41" // scroll bar
    readonly property color steam: "#F6EDE2" // text, focus ring
    readonly property color stock: highContrast ? "#F6EDE2" : "#B9AB9C" // labels
    readonly property color amber: "#FFB454" // title, selection, "on"
    readonly property color ember: "#5A2410" // filled buttons
    readonly property color emberHover: "#6E2E14"
    readonly property color emberPressed: "#47190A"
    readonly property color ok: "#66FF8C"
    readonly property color draft: "#FFBF4D"
    readonly property color bad: "#FF7A66"
    readonly property color alarm: "#5C1A14" // button that destroys
    readonly property color alarmHover: "#70211A"
    readonly property color alarmPressed: "#48130F"
    readonly property color alarmText: "#FFA091"
    readonly property color disabled: highContrast ? "#9C8B7B" : "#5B5148"

    readonly property color hint: white(highContrast ? 0.95 : 0.62)
    readonly property color readout: white(highContrast ? 0.95 : 0.7)
    readonly property color plainText: white(highContrast ? 0.95 : 0.75)
    readonly property color plain: white(highContrast ? 0.14 : 0.08)
    readonly property color plainHover: white(0.13)
    readonly property color plainPressed: white(0.05)
    readonly property color disabledText: white(highContrast ? 0.55 : 0.28)
    readonly property color stripSymbol: white(highContrast ? 1 : 0.82)
    readonly property color stripDisabled: white(highContrast ? 0.55 : 0.3)

    readonly property list<color> clay: ["#15110E", "#4C4036", "#9C8B7B", "#EADFD2"]
    readonly property list<color> trackOn: ["#4A1D0C", "#A8481A", "#FFB454"]
    readonly property list<color> trackOff: highContrast ? ["#4C4036", "#7A6A5C"] : ["#211A15", "#3A3028"]

    readonly property string family: Surroundings.textFamily
    readonly property string displayFamily: Surroundings.displayFamily

    readonly property bool highContrast: Surroundings.highContrast
    readonly property bool reducedMotion: Surroundings.reducedMotion
    readonly property int hoverTime: reducedMotion ? 0 : 120
    readonly property int pressTime: reducedMotion ? 0 : 80
    readonly property int fadeTime: reducedMotion ? 100 : 150
    readonly property int labelTime: reducedMotion ? 100 : 200
    readonly property int springTime: reducedMotion ? 0 : 600
    readonly property real pressScale: reducedMotion ? 1 : 0.98
    readonly property real tilePressScale: reducedMotion ? 1 : 0.96

    function white(opacity: real): color {
        return Qt.rgba(1, 1, 1, opacity)
    }

    /** Where a spring of response 0.42 and damping 0.8 is, from 0 to 1, at a share of springTime. */
    function spring(progress: real): real {
        if (progress >= 1)
            return 1
        const seconds = 0.6 * progress
        return 1 - Math.exp(-11.97 * seconds) * (Math.cos(8.976 * seconds) + 1.333 * Math.sin(8.976 * seconds))
    }

    /** A colour as image providers take it. */
    function code(colour: color): string {
        return `${colour}`.substring(1) // with toString() qmllint 6.4 crashes
    }

    /** A length on whole device pixels. */
    function snapped(points: real, scale: real): real {
        return Math.round(points * scale) / scale
    }
}
