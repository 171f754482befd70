// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/panel_shade.h"

#include "platform/linux/bus_service.h"

#include <QDBusVariant>
#include <QStringList>

namespace tessel {

namespace {

const auto settingsName = QStringLiteral("org.xfce.Xfconf");
const auto settingsPath = QStringLiteral("/org/xfce/Xfconf");
const auto panelChannel = QStringLiteral("xfce4-panel");
const auto darkMode = QStringLiteral("/panels/dark-mode");

/// Without the setting, or where it is off, panels have the colours of windows.
std::optional<bool> shade(const QVariant& setting)
{
    return setting.value<QDBusVariant>().variant().toBool() ? std::optional(true) : std::nullopt;
}

} // namespace

LinuxPanelShade::LinuxPanelShade(const QDBusConnection& sessionBus, const QString& desktop)
{
    const QStringList names = desktop.split(QLatin1Char(':'));
    const bool isXfce = names.contains(QStringLiteral("XFCE"));
    m_recolorsIcons = isXfce || names.contains(QStringLiteral("KDE"));
    if (isXfce || desktop.isEmpty() || names.contains(QStringLiteral("GNOME")))
        m_isDark = true;
    if (isXfce)
        watchXfceSettings(sessionBus, std::nullopt);
    else if (desktop.isEmpty())
        watchXfceSettings(sessionBus, true);
}

void LinuxPanelShade::watchXfceSettings(const QDBusConnection& sessionBus, std::optional<bool> unlessSet)
{
    m_xfceSettings = new BusService(sessionBus, settingsName, this);
    connect(m_xfceSettings, &BusService::appeared, this, [this, unlessSet] {
        m_xfceSettings->listen(settingsPath, settingsName, QStringLiteral("PropertyChanged"));
        m_xfceSettings->listen(settingsPath, settingsName, QStringLiteral("PropertyRemoved"));
        m_xfceSettings->call(
            settingsPath, settingsName, QStringLiteral("GetProperty"), {panelChannel, darkMode},
            [this](const QDBusMessage& reply) { set(shade(reply.arguments().value(0))); },
            [this, unlessSet] { set(unlessSet); });
    });
    connect(m_xfceSettings, &BusService::received, this, [this](const QDBusMessage& message) {
        const QVariantList arguments = message.arguments();
        if (arguments.value(0) == panelChannel && arguments.value(1) == darkMode)
            set(shade(arguments.value(2)));
    });
}

void LinuxPanelShade::set(std::optional<bool> isDark)
{
    if (m_isDark == isDark)
        return;
    m_isDark = isDark;
    Q_EMIT changed();
}

std::unique_ptr<PanelShade> watchPanelShade()
{
    return std::make_unique<LinuxPanelShade>(QDBusConnection::sessionBus(),
                                             qEnvironmentVariable("XDG_CURRENT_DESKTOP"));
}

} // namespace tessel
