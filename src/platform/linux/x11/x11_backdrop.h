// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPoint>

#include <xcb/xcb.h>

class QImage;

namespace tessel {

class X11Connection;

/// Copies a picture into a drawable of the screen's depth, its top left corner at `to`: through shared memory
/// where the server offers it. The server may still be drawing when this returns.
/// \param picture Format_RGB32
void upload(X11Connection& connection, xcb_drawable_t drawable, const QImage& picture, QPoint to);

/// Makes a picture the background of a window of the screen's depth, and shows it at once. A null image takes
/// the background away and leaves what is shown. On a connection of its own: for any thread.
/// \param picture of the window's pixel size, Format_RGB32
void setWindowBackdrop(xcb_window_t window, const QImage& picture);

} // namespace tessel
