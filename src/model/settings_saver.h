// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/worker.h"
#include "model/settings_file.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <optional>
#include <set>
#include <string>

namespace tessel {

/// When a value that was set is written.
enum class SaveWhen : std::uint8_t
{
    atOnce,       ///< with the operation that set it
    withNext,     ///< with whatever is written next, or after the delay
    whenLeftAlone ///< once it has not been set again for the delay
};

/// Writes settings on a thread of its own, so that nobody waits for a disk: one write at a time, in the order
/// in which they were asked for. What is set while one is under way goes together into the next. For the
/// thread that made it only.
///
/// While writing fails, nothing is lost: it is tried again the delay after a change and every
/// `retryInterval`.
///
/// Destroying it waits for the write that is under way and starts no other.
class SettingsSaver : public QObject
{
    Q_OBJECT

public:
    struct Timing
    {
        std::chrono::milliseconds delay;
        std::chrono::milliseconds retryInterval;
        std::chrono::milliseconds lockPatience; ///< until another program's writing becomes a failure
    };

    /// \param text what the file holds
    /// \param unreadable keys whose values in the file nobody could read
    SettingsSaver(QString file, QByteArray text, std::set<std::string> unreadable, Timing timing,
                  QObject* parent);

    /// Sets a value, which is on its way when commit() has been called or its time has come.
    void set(const std::string& key, SettingValue value, SaveWhen when);

    /// Ends an operation: what it set to be written at once is.
    void commit();

    /// Waits until all that was set is written. Another program that is writing the settings is given half a
    /// second to end, the disk a second and a half: then everything is written without waiting for it.
    /// \return whether everything is written
    bool saveNow();

Q_SIGNALS:
    /// Writing has begun to fail, or works again with nothing lost. That another program is writing the
    /// settings is no failure before `lockPatience` is over.
    void failed(const QString& message);
    void resumed();

private:
    void addChanging();
    void startLater();
    void write(std::chrono::milliseconds patience = {});
    void written(const Outcome<std::optional<WritingFailure>>& outcome);
    void noteSuccess();
    void retry(const WritingFailure& failure);
    bool waitForWrite(const QDeadlineTimer& deadline);
    bool writeAtEnd();

    const QString m_file;
    QByteArray m_text; ///< what it holds; for the thread that writes
    const Timing m_timing;
    std::set<std::string> m_unreadable; ///< as long as there is no copy of the file
    SettingValues m_changing;           ///< to be left alone before they are written
    SettingValues m_unsaved;
    SettingValues m_beingWritten;
    bool m_isDue = false; ///< something was set to be written at once
    bool m_isWriting = false;
    bool m_isNextDue = false; ///< when the write under way ends, another is to begin
    bool m_isFailing = false;
    std::optional<QDeadlineTimer> m_lockDeadline; ///< when another program's writing becomes a failure
    QTimer m_laterTimer;                          ///< runs while something waits for the delay
    QTimer m_retryTimer;                          ///< runs while writing fails
    Worker m_worker;
};

} // namespace tessel
