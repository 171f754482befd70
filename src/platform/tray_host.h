// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

#include <memory>

namespace tessel {

/// The part of the panel that shows other programs' icons.
class TrayHost : public QObject
{
    Q_OBJECT

public:
    /// Whether its program answers, or there is none: whoever makes an icon waits for that answer.
    [[nodiscard]] virtual bool isKnown() const { return true; }

Q_SIGNALS:
    /// It is known now, or there is one where perhaps none was before.
    void changed();
};

/// Asks at once, and waits for nothing.
[[nodiscard]] std::unique_ptr<TrayHost> watchTrayHost();

} // namespace tessel
