// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

namespace tessel {

/// Keeps menus that open at the pointer as large as they are, and without a title. On Wayland those are
/// ordinary windows where no window of Qt's is below them: a tiling compositor would have them fill the
/// screen, and others give them a frame.
class WaylandMenus : public QObject
{
    Q_OBJECT

public:
    /// Looks after all menus of the application, which must be there.
    WaylandMenus();

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace tessel
