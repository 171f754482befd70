// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/wayland/wayland_menus.h"

#include <QEvent>
#include <QGuiApplication>
#include <QWindow>

namespace tessel {

WaylandMenus::WaylandMenus()
{
    qGuiApp->installEventFilter(this);
}

bool WaylandMenus::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Show || !watched->isWindowType())
        return false;
    auto& window = static_cast<QWindow&>(*watched);
    if (window.type() == Qt::Popup && window.transientParent() == nullptr) {
        window.setMinimumSize(window.size());
        window.setMaximumSize(window.size());
        window.setFlag(Qt::FramelessWindowHint);
    }
    return false;
}

} // namespace tessel
