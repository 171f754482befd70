// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/window_pointer_feed.h"

#include <QEnterEvent>
#include <QWindow>

namespace tessel {

WindowPointerFeed::WindowPointerFeed(QWindow& window)
{
    window.installEventFilter(this);
}

bool WindowPointerFeed::eventFilter(QObject* /*watched*/, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Enter:
        Q_EMIT moved(static_cast<QEnterEvent&>(*event).position().toPoint());
        break;
    case QEvent::MouseMove:
        Q_EMIT moved(static_cast<QMouseEvent&>(*event).position().toPoint());
        break;
    case QEvent::Leave:
        Q_EMIT left();
        break;
    default:
        break;
    }
    return false;
}

} // namespace tessel
