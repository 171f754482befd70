// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/store.h"
#include "platform/session.h"

#include <QDateTime>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>

namespace tessel {

/// Serves a fresh wallpaper whenever the store's interval has gone by since the last one. The date of the
/// last serving is kept among the settings, so the rhythm goes on through restarts and sleep; what was missed
/// in the meantime is made up for by one serving.
class ShuffleTimer : public QObject
{
    Q_OBJECT

public:
    /// \param now the time of day; injected by tests
    ShuffleTimer(Store& store, Session& session,
                 std::function<QDateTime()> now = QDateTime::currentDateTimeUtc);

    /// Begins to count.
    void start();

    /// How long it is until the next serving, at least a second; none while there is to be none.
    [[nodiscard]] std::optional<std::chrono::milliseconds> remaining() const;

private:
    void schedule();
    void fire();

    Store& m_store;
    std::function<QDateTime()> m_now;
    QDateTime m_due; ///< invalid while there is to be no serving
    QTimer m_timer;
};

} // namespace tessel
