// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QPoint>

namespace tessel {

/// Tells what the pointer does, over our windows and everybody else's. While it rests nothing happens.
class PointerFeed : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    /// \param position points, among all screens
    void moved(QPoint position);
    /// The left or the right button went down.
    void pressed(QPoint position);
    /// The left button went up.
    void released(QPoint position);
};

} // namespace tessel
