// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QString>
#include <QThread>

#include <exception>
#include <functional>
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

/// Runs jobs on a thread of its own, one after the other. Where no thread can be made they run at once on
/// the calling one, which is slower for the user but loses nothing.
///
/// Jobs throw what they like below std::exception; it arrives as the failure of their outcome.
class Worker : public QObject
{
    Q_OBJECT

public:
    /// \param name of the thread, to be seen by those who look for what it does
    /// \param prepareThread runs first on it, to lower its priority say
    explicit Worker(const QString& name, const std::function<void()>& prepareThread = {});

    /// Waits for the jobs that were handed in; nobody is told of their outcomes any more.
    ~Worker() override;

    /// Runs a job, and then `done` on the thread that this lives in with its outcome. The value of a job
    /// that returns nothing is std::monostate.
    template<typename Job, typename Done>
    void run(Job job, Done done);

    /// A job that nobody waits for. What it throws goes to standard error.
    template<typename Job>
    void run(Job job);

    /// Waits until all jobs handed in so far are done. Their `done` come later, from the event loop.
    /// \return whether they are, by the deadline
    bool wait(QDeadlineTimer deadline = QDeadlineTimer::Forever);

    /// Lets an object without a parent live on the thread, which deletes it when it ends.
    void adopt(QObject* object);

private:
    template<typename Job>
    static auto outcomeOf(Job& job);
    void post(std::function<void()> job);
    void report(const QString& failure) const;

    QThread m_thread;
    QObject m_place; ///< lives on the thread
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
        QMetaObject::invokeMethod(
            this, [done = std::move(done), outcome = outcomeOf(job)]() mutable { done(std::move(outcome)); },
            Qt::QueuedConnection);
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
