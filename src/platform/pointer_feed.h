// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QPoint>

namespace tessel {

/// Tells what the pointer does over the input region of one window of ours, and where it is pressed. While it
/// is elsewhere nothing happens, however much it moves. Positions are points.
class PointerFeed : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    /// It is over the window, or was pressed there and is still held.
    /// \param position from the window's top left corner: not everywhere do windows know where they are
    void moved(QPoint position);
    /// It is no longer.
    void left();
    /// The left or the right button went down, over whoever's window.
    /// \param position among all screens
    void pressed(QPoint position);
};

} // namespace tessel
