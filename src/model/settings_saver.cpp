// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/settings_saver.h"

#include <utility>

namespace tessel {

namespace {

/// Another program's writing takes milliseconds, as a rule.
constexpr std::chrono::milliseconds lockRetryInterval{100};
/// saveNow() is called twice when the program ends.
constexpr std::chrono::milliseconds endPatience{500};
/// With a disk, before the program ends.
constexpr std::chrono::milliseconds diskPatience{1500};

} // namespace

SettingsSaver::SettingsSaver(QString file, QByteArray text, std::set<std::string> unreadable, Timing timing,
                             QObject* parent)
    : QObject(parent)
    , m_file(std::move(file))
    , m_text(std::move(text))
    , m_timing(timing)
    , m_unreadable(std::move(unreadable))
    , m_laterTimer(this)
    , m_retryTimer(this)
    , m_worker(QStringLiteral("settings"))
{
    m_laterTimer.setSingleShot(true);
    m_laterTimer.setTimerType(Qt::PreciseTimer);
    m_laterTimer.setInterval(m_timing.delay);
    connect(&m_laterTimer, &QTimer::timeout, this, [this] {
        addChanging();
        write();
    });
    m_retryTimer.setSingleShot(true);
    connect(&m_retryTimer, &QTimer::timeout, this, [this] { write(); });
}

void SettingsSaver::set(const std::string& key, SettingValue value, SaveWhen when)
{
    if (when == SaveWhen::whenLeftAlone) {
        m_changing.insert_or_assign(key, std::move(value));
        m_laterTimer.start();
        return;
    }
    m_unsaved.insert_or_assign(key, std::move(value));
    if (when == SaveWhen::atOnce)
        m_isDue = true;
    else
        startLater();
}

void SettingsSaver::commit()
{
    if (!std::exchange(m_isDue, false))
        return;
    if (m_retryTimer.isActive())
        startLater();
    else
        write();
}

bool SettingsSaver::saveNow()
{
    const QDeadlineTimer deadline(diskPatience);
    addChanging();
    if (!waitForWrite(deadline))
        return writeAtEnd();
    write(endPatience);
    if (!waitForWrite(deadline))
        return writeAtEnd();
    return m_unsaved.empty();
}

/// Has what is changing all the time written with the rest.
void SettingsSaver::addChanging()
{
    m_changing.merge(std::exchange(m_unsaved, {}));
    m_unsaved = std::exchange(m_changing, {});
}

/// Has what is unsaved written a little later, if nothing has seen to that already.
void SettingsSaver::startLater()
{
    if (!m_laterTimer.isActive())
        m_laterTimer.start();
}

void SettingsSaver::write(std::chrono::milliseconds patience)
{
    m_isNextDue = m_isWriting;
    if (m_isWriting || m_unsaved.empty())
        return;
    m_isWriting = true;
    m_beingWritten = std::exchange(m_unsaved, {});
    m_worker.run([this, changes = m_beingWritten, unreadable = m_unreadable,
                  patience] { return writeSettings(m_file, changes, unreadable, patience, &m_text); },
                 [this](const Outcome<std::optional<WritingFailure>>& outcome) { written(outcome); });
}

void SettingsSaver::written(const Outcome<std::optional<WritingFailure>>& outcome)
{
    m_isWriting = false;
    const std::optional<WritingFailure> failure =
        outcome.value.value_or(WritingFailure{QStringLiteral("\"%1\": %2").arg(m_file, outcome.failure)});
    if (failure) {
        // What was set in the meantime is newer.
        m_unsaved.merge(std::exchange(m_beingWritten, {}));
        retry(*failure);
        return;
    }
    noteSuccess();
    if (m_isNextDue)
        write();
}

void SettingsSaver::noteSuccess()
{
    const SettingValues done = std::exchange(m_beingWritten, {});
    // The copy holds the other unreadable values too.
    if (std::erase_if(m_unreadable, [&](const std::string& key) { return done.contains(key); }) > 0)
        m_unreadable.clear();
    if (m_unsaved.empty() && m_changing.empty())
        m_laterTimer.stop();
    m_retryTimer.stop();
    m_lockDeadline.reset();
    if (std::exchange(m_isFailing, false))
        Q_EMIT resumed();
}

/// Has it tried again, and tells of the failure if it is news.
void SettingsSaver::retry(const WritingFailure& failure)
{
    if (failure.isLocked && !m_isFailing) {
        if (!m_lockDeadline)
            m_lockDeadline.emplace(m_timing.lockPatience);
        if (!m_lockDeadline->hasExpired()) {
            m_retryTimer.start(lockRetryInterval);
            return;
        }
    }
    m_lockDeadline.reset();
    m_retryTimer.start(m_timing.retryInterval);
    if (!std::exchange(m_isFailing, true))
        Q_EMIT failed(failure.message);
}

/// \return whether no write is under way any more
bool SettingsSaver::waitForWrite(const QDeadlineTimer& deadline)
{
    while (m_isWriting) {
        if (!m_worker.wait(deadline))
            return false;
        // Its outcome is on the way to us, and one more write may begin with it.
        m_worker.tell();
    }
    return true;
}

/// Writes what is on its way and what waits for it. Should the program go on, all of it is written again.
bool SettingsSaver::writeAtEnd()
{
    SettingValues all = m_unsaved;
    all.insert(m_beingWritten.begin(), m_beingWritten.end());
    m_isNextDue = !m_unsaved.empty();
    return !writeSettingsAtEnd(m_file, all, m_unreadable);
}

} // namespace tessel
