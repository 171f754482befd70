// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/worker.h"

#include <QCoreApplication>
#include <QEvent>

#include <chrono>
#include <cstdio>
#include <future>

namespace tessel {

void Inbox::post(std::function<void()> job)
{
    auto event = std::make_unique<QEvent>(QEvent::User);
    {
        const std::scoped_lock lock(m_mutex);
        m_jobs.push_back(std::move(job));
    }
    QCoreApplication::postEvent(this, event.release());
}

bool Inbox::event(QEvent* event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    std::function<void()> job;
    {
        const std::scoped_lock lock(m_mutex);
        job = std::move(m_jobs.front());
        m_jobs.pop_front();
    }
    job();
    return true;
}

Worker::Worker(const QString& name, const std::function<void()>& prepareThread)
{
    m_thread.setObjectName(name);
    m_thread.start();
    if (!m_thread.isRunning())
        return;
    m_jobs.moveToThread(&m_thread);
    if (prepareThread)
        post(prepareThread);
}

Worker::~Worker()
{
    wait();
    m_thread.quit();
    m_thread.wait();
}

void Worker::post(std::function<void()> job)
{
    if (m_jobs.thread() == QThread::currentThread())
        job();
    else
        m_jobs.post(std::move(job));
}

bool Worker::wait(QDeadlineTimer deadline)
{
    // The job may outlive this call.
    const auto done = std::make_shared<std::promise<void>>();
    const std::future<void> isDone = done->get_future();
    post([done] { done->set_value(); });
    if (deadline.isForever()) {
        isDone.wait();
        return true;
    }
    return isDone.wait_until(deadline.deadline<std::chrono::steady_clock>()) == std::future_status::ready;
}

void Worker::tell()
{
    QCoreApplication::sendPostedEvents(&m_told);
}

void Worker::adopt(QObject* object)
{
    if (!m_thread.isRunning()) {
        object->setParent(&m_told);
        return;
    }
    object->moveToThread(&m_thread);
    QObject::connect(&m_thread, &QThread::finished, object, &QObject::deleteLater);
}

void Worker::report(const QString& failure) const
{
    std::fprintf(stderr, "Tessel Broth: %s: %s\n", qUtf8Printable(m_thread.objectName()),
                 qUtf8Printable(failure));
}

} // namespace tessel
