// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/** A drawing of the introduction's own, pixel by pixel. */
Image {
    /** Without the scale, as OnboardingImages has it. */
    required property string drawing

    smooth: false
    source: `image://onboarding/${drawing}/${Screen.devicePixelRatio}`
}
