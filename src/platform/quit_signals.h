// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

#include <memory>

namespace tessel {

/// Hears when the system asks the program to end, so that it can do so in good order.
class QuitSignals : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void received();
};

/// To be made once for a process.
[[nodiscard]] std::unique_ptr<QuitSignals> watchQuitSignals();

} // namespace tessel
