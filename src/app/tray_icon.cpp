// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/tray_icon.h"

#include "app/status_icon.h"
#include "base/identity.h"

#include <QEvent>
#include <QGuiApplication>
#include <QIcon>
#include <QPalette>

namespace tessel {

TrayIcon::TrayIcon(QMenu& menu, TrayHost& host, PanelShade& shade)
    : m_menu(menu)
    , m_host(host)
    , m_shade(shade)
{
    // An icon that was made while no panel listened on the bus is not offered to one later.
    connect(&host, &TrayHost::changed, this, [this] {
        if (!m_hasPanel)
            renew();
    });
    connect(&shade, &PanelShade::changed, this, &TrayIcon::drawIcon);
    qGuiApp->installEventFilter(this);
    if (m_host.isKnown())
        renew();
}

bool TrayIcon::hasPanel() const
{
    return m_host.isKnown() && QSystemTrayIcon::isSystemTrayAvailable();
}

void TrayIcon::renew()
{
    m_hasPanel = hasPanel();
    m_icon = std::make_unique<QSystemTrayIcon>();
    drawIcon();
    m_icon->setToolTip(identity::name);
    m_icon->setContextMenu(&m_menu);
    connect(m_icon.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger)
                    Q_EMIT clicked();
            });
    m_icon->show();
    Q_EMIT shown();
}

void TrayIcon::drawIcon()
{
    if (m_icon == nullptr)
        return;
    const QColor windowColor = QGuiApplication::palette().color(QPalette::Window);
    // Not every panel has pixels, too, of an icon that it is told to draw: it must be installed.
    const QString symbolic = identity::id + QStringLiteral("-symbolic");
    const bool isDrawnByPanel = m_shade.recolorsIcons() && QIcon::hasThemeIcon(symbolic);
    m_icon->setIcon(
        statusIcon(panelTone(m_shade.isDark(), windowColor), isDrawnByPanel ? symbolic : QString()));
}

bool TrayIcon::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange)
        drawIcon();
    return false;
}

} // namespace tessel
