// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/panel_shade.h"
#include "platform/tray_host.h"

#include <QMenu>
#include <QSystemTrayIcon>

#include <memory>

namespace tessel {

/// The bowl in the panel. Where there is no panel yet, or one that does not answer, it appears with the
/// panel.
class TrayIcon : public QObject
{
    Q_OBJECT

public:
    /// All of them must outlive the icon.
    TrayIcon(QMenu& menu, TrayHost& host, PanelShade& shade);

    /// Whether the bowl can be seen.
    [[nodiscard]] bool hasPanel() const;

Q_SIGNALS:
    /// The icon was clicked where its menu does not come up by itself.
    void clicked();
    /// The menu has been handed to a panel.
    void shown();

private:
    void renew();
    void drawIcon();
    bool eventFilter(QObject* watched, QEvent* event) override;

    QMenu& m_menu;
    TrayHost& m_host;
    PanelShade& m_shade;
    std::unique_ptr<QSystemTrayIcon> m_icon; ///< there once the host is known
    bool m_hasPanel = false;                 ///< when the icon was made
};

} // namespace tessel
