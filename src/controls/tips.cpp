// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/tips.h"

namespace tessel {

Tips::Tips(QObject* parent) : QObject(parent)
{
    m_rest.setSingleShot(true);
    m_rest.setInterval(restTime);
    connect(&m_rest, &QTimer::timeout, this, &Tips::show);
}

void Tips::enter(QQuickItem* control, const QString& text)
{
    const bool soon = m_isShown || (m_sinceHidden.isValid() && !m_sinceHidden.hasExpired(graceTime.count()));
    hide();
    m_target = control;
    m_text = text;
    if (text.isEmpty())
        return;
    if (soon)
        show();
    else
        m_rest.start();
}

void Tips::leave(QQuickItem* control)
{
    if (m_target == control)
        hide();
}

void Tips::press(QQuickItem* control)
{
    if (m_target != control)
        return;
    hide();
    m_sinceHidden.invalidate();
}

void Tips::show()
{
    if (m_target.isNull() || !m_target->isVisible())
        return;
    m_isShown = true;
    Q_EMIT shownChanged();
}

void Tips::hide()
{
    m_rest.stop();
    m_target.clear();
    if (!m_isShown)
        return;
    m_isShown = false;
    m_sinceHidden.start();
    Q_EMIT shownChanged();
}

} // namespace tessel
