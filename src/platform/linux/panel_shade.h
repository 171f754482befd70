// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/panel_shade.h"

#include <QDBusConnection>
#include <QString>

namespace tessel {

class BusService;

/// GNOME's panels are dark, and so are as a rule those on a desktop put together by hand, which has no name.
/// XFCE's have a setting to be dark whatever windows are, which counts also where its panel may be part of
/// such a desktop. Those of XFCE and Plasma give symbolic icons their own colour; others draw them as they
/// are in the file.
class LinuxPanelShade : public PanelShade
{
    Q_OBJECT

public:
    /// \param desktop the value of XDG_CURRENT_DESKTOP
    LinuxPanelShade(const QDBusConnection& sessionBus, const QString& desktop);

    [[nodiscard]] std::optional<bool> isDark() const override { return m_isDark; }
    [[nodiscard]] bool recolorsIcons() const override { return m_recolorsIcons; }

private:
    void watchXfceSettings(const QDBusConnection& sessionBus, std::optional<bool> unlessSet);
    void set(std::optional<bool> isDark);

    std::optional<bool> m_isDark;
    bool m_recolorsIcons;
    BusService* m_xfceSettings = nullptr;
};

} // namespace tessel
