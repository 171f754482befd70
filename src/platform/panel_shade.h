// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

#include <memory>
#include <optional>

namespace tessel {

/// How dark the desktop's panels are, and what they make of icons.
class PanelShade : public QObject
{
    Q_OBJECT

public:
    /// Whether panels are dark; nothing where they have the colours of windows.
    [[nodiscard]] virtual std::optional<bool> isDark() const = 0;

    /// Whether panels draw symbolic icons of the theme in the colour of their own text.
    [[nodiscard]] virtual bool recolorsIcons() const = 0;

Q_SIGNALS:
    void changed();
};

[[nodiscard]] std::unique_ptr<PanelShade> watchPanelShade();

} // namespace tessel
