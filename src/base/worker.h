// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QString>
#include <QThread>

#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>

namespace tessel {

/// What a job came to: its value, or why there is none.
template<typename Value>
struct Outcome
{
    std::optional<Value> value;
    QString failure; ///< for people; empty with a value
};

/// Jobs for the thread that this lives on; its event loop runs them in order. Any thread may post one.
class Inbox : public QObject
{
public:
    void post(std::function<void()> job);
    bool event(QEvent* event) override;

private:
    std::mutex m_mutex; ///< not left to Qt's queue of events, whose locks thread sanitizers do not see
    std::deque<std::function<void()>> m_jobs;
};

/// Runs jobs on a thread of its own, one after the other. Where no thread can be made they run at once on
/// the calling one, which is slower for the user but loses nothing.
///
/// Jobs throw what they like below std::exception; it arrives as the failure of their outcome.
class Worker
{
public:
    /// \param name of the thread, to be seen by those who look for what it does
    /// \param prepareThread runs first on it, to lower its priority say
    explicit Worker(const QString& name, const std::function<void()>& prepareThread = {});

    /// Waits for the jobs that were handed in; nobody is told of their outcomes any more.
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    /// Runs a job, and then `done` on the thread that this lives in with its outcome. The value of a job
    /// that returns nothing is std::monostate.
    template<typename Job, typename Done>
    void run(Job job, Done done);

    /// A job that nobody waits for. What it throws goes to standard error.
    template<typename Job>
    void run(Job job);

    /// Waits until all jobs handed in so far are done. Their `done` come later, from the event loop or by
    /// tell(). \return whether they are, by the deadline
    bool wait(QDeadlineTimer deadline = QDeadlineTimer::Forever);

    /// Calls `done` for the jobs that are done, which otherwise the event loop does.
    void tell();

    /// Lets an object without a parent live on the thread, which deletes it when it ends.
    void adopt(QObject* object);

private:
    template<typename Job>
    static auto outcomeOf(Job& job);
    void post(std::function<void()> job);
    void report(const QString& failure) const;

    QThread m_thread;
    Inbox m_jobs; ///< lives on the thread
    Inbox m_told; ///< lives here
};

template<typename Job>
auto Worker::outcomeOf(Job& job)
{
    using Result = std::invoke_result_t<Job&>;
    using Value = std::conditional_t<std::is_void_v<Result>, std::monostate, Result>;
    Outcome<Value> outcome;
    try {
        if constexpr (std::is_void_v<Result>) {
            job();
            outcome.value.emplace();
        } else {
            outcome.value.emplace(job());
        }
    } catch (const std::exception& error) {
        outcome.failure = QString::fromUtf8(error.what());
    }
    return outcome;
}

template<typename Job, typename Done>
void Worker::run(Job job, Done done)
{
    post([this, job = std::move(job), done = std::move(done)]() mutable {
        using Result = decltype(outcomeOf(job));
        m_told.post([done = std::move(done), outcome = std::make_shared<Result>(outcomeOf(job))]() mutable {
            done(std::move(*outcome));
        });
    });
}

template<typename Job>
void Worker::run(Job job)
{
    post([this, job = std::move(job)]() mutable {
        if (const auto outcome = outcomeOf(job); !outcome.value)
            report(outcome.failure);
    });
}

} // namespace tessel
