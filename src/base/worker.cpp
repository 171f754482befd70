// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/worker.h"

#include <QSemaphore>

#include <cstdio>
#include <memory>

namespace tessel {

Worker::Worker(const QString& name, const std::function<void()>& prepareThread)
{
    m_thread.setObjectName(name);
    m_thread.start();
    if (!m_thread.isRunning())
        return;
    m_place.moveToThread(&m_thread);
    if (prepareThread)
        post(prepareThread);
}

Worker::~Worker()
{
    // As a job, so that those before it are done.
    post([this] { m_thread.quit(); });
    m_thread.wait();
}

void Worker::post(std::function<void()> job) // NOLINT(performance-unnecessary-value-param): it is moved
{
#ifdef __clang_analyzer__ // It does not see that the job is Qt's, and tells of a leak in Qt's header.
    static_cast<void>(std::move(job));
#else
    // Where there is no thread this calls it.
    QMetaObject::invokeMethod(&m_place, std::move(job));
#endif
}

bool Worker::wait(QDeadlineTimer deadline)
{
    // The job may outlive this call.
    const auto done = std::make_shared<QSemaphore>();
    post([done] { done->release(); });
    return done->tryAcquire(1, static_cast<int>(deadline.remainingTime()));
}

void Worker::adopt(QObject* object)
{
    if (!m_thread.isRunning()) {
        object->setParent(this);
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
