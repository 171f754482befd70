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

} // namespace tessel
