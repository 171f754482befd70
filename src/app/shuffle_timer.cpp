// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/shuffle_timer.h"

#include <algorithm>
#include <utility>

namespace tessel {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds shortestWait = 1s;

/// A timer counts its milliseconds in 32 bits: longer waits are made of several.
constexpr std::chrono::milliseconds longestWait = 24h;

/// A hundred years, beyond which dates would overflow.
constexpr qint64 longestInterval = qint64{100} * 366 * 24 * 60;

constexpr qint64 secondsPerMinute = 60;

qint64 intervalSeconds(qint64 minutes)
{
    return std::min(minutes, longestInterval) * secondsPerMinute;
}

} // namespace

ShuffleTimer::ShuffleTimer(Store& store, Session& session, std::function<QDateTime()> now)
    : m_store(store)
    , m_now(std::move(now))
{
    m_timer.setSingleShot(true);
    // The others may come a twentieth of the wait too early or too late.
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &ShuffleTimer::fire);
    connect(&store, &Store::shuffleMinutesChanged, this, [this] {
        // A new interval counts from the moment in which it was chosen.
        m_store.setLastServed(m_now());
        schedule();
    });
    // Timers stand still while the machine sleeps, and know nothing of the time of day.
    connect(&session, &Session::woke, this, &ShuffleTimer::schedule);
    connect(&session, &Session::clockSet, this, &ShuffleTimer::schedule);
}

void ShuffleTimer::start()
{
    schedule();
}

std::optional<std::chrono::milliseconds> ShuffleTimer::remaining() const
{
    if (!m_due.isValid())
        return std::nullopt;
    return std::max(std::chrono::milliseconds(m_now().msecsTo(m_due)), shortestWait);
}

void ShuffleTimer::schedule()
{
    m_timer.stop();
    m_due = {};
    if (m_store.shuffleMinutes() < 1)
        return;
    const qint64 interval = intervalSeconds(m_store.shuffleMinutes());
    const QDateTime now = m_now();
    // A date far ahead was written while the clock was wrong: it would put the serving off for ever.
    if (!m_store.lastServed().isValid() || m_store.lastServed() > now.addSecs(interval))
        m_store.setLastServed(now);
    m_due = m_store.lastServed().addSecs(interval);
    m_timer.start(std::min(*remaining(), longestWait));
}

void ShuffleTimer::fire()
{
    if (m_now() < m_due) {
        schedule();
        return;
    }
    // In this order both are saved together.
    m_store.setLastServed(m_now());
    m_store.shuffle();
    schedule();
}

} // namespace tessel
