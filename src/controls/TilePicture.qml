// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/** A picture that is drawn elsewhere at the size of what it is in, in device pixels. */
Image {
    asynchronous: true
    height: parent.height
    smooth: false
    sourceSize.height: Math.round(height * Screen.devicePixelRatio)
    sourceSize.width: Math.round(width * Screen.devicePixelRatio)
    width: parent.width
}
