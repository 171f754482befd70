// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls
import TesselBroth.Editor

/** A knob of the look, as its model has it. */
Knob {
    id: root

    required property KnobModel knob

    label: knob.label
    maximumValue: knob.maximumValue
    minimumValue: knob.minimumValue
    position: knob.position
    stepSize: knob.stepSize
    valueText: knob.text

    onAdjusted: direction => knob.adjust(direction)
    onDragEnded: knob.endDrag()
    onDragStarted: knob.startDrag()
    onDraggedBy: widths => knob.dragBy(widths)
    onEntered: text => knob.enter(text)
    onHighestAsked: knob.toHighest()
    onLowestAsked: knob.toLowest()
    onResetAsked: knob.reset()
}
