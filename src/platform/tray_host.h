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

Q_SIGNALS:
    /// There is one now; perhaps there was none before.
    void appeared();
};

[[nodiscard]] std::unique_ptr<TrayHost> watchTrayHost();

} // namespace tessel
