// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/desktops/queued_pictures.h"

#include <QDBusConnection>
#include <QFileInfo>

namespace tessel {

namespace {

/// Takes out pictures without a file.
/// \return a message for each
QStringList removeMissing(std::vector<DesktopPicture>& pictures)
{
    QStringList failures;
    std::erase_if(pictures, [&failures](const DesktopPicture& picture) {
        if (QFileInfo(picture.file).isFile())
            return false;
        failures << QStringLiteral("There is no picture for %1: the file %2 is gone.")
                        .arg(picture.screen.name, picture.file);
        return true;
    });
    return failures;
}

} // namespace

QueuedPictures::QueuedPictures(QString desktop, Find find)
    : m_find(std::move(find))
    , m_desktop(std::move(desktop))
{
    m_drawing.setSingleShot(true);
    m_drawing.setInterval(std::chrono::seconds(2));
    connect(&m_drawing, &QTimer::timeout, this, &QueuedPictures::desktopStarted);
    connect(&m_services, &QDBusServiceWatcher::serviceRegistered, &m_drawing, qOverload<>(&QTimer::start));
    connect(this, &QueuedPictures::started, &m_worker, [this] { Q_EMIT carriedOut(carryOut(*m_running)); });
    connect(this, &QueuedPictures::carriedOut, this, &QueuedPictures::answer, Qt::QueuedConnection);
    m_worker.moveToThread(&m_thread);
    m_thread.start();
}

QueuedPictures::~QueuedPictures()
{
    m_thread.quit();
    m_thread.wait();
}

void QueuedPictures::set(const std::vector<DesktopPicture>& pictures)
{
    ask({pictures, PictureBackend::Which::all});
}

void QueuedPictures::restore(const std::vector<DesktopPicture>& pictures)
{
    ask({pictures, PictureBackend::Which::different});
}

void QueuedPictures::desktopStarted()
{
    if (!m_newest.empty() && !m_waiting)
        ask({m_newest, PictureBackend::Which::different, 0});
}

void QueuedPictures::watch(const QDBusConnection& bus, const QStringList& services)
{
    m_services.setConnection(bus);
    m_services.setWatchMode(QDBusServiceWatcher::WatchForRegistration);
    m_services.setWatchedServices(services);
}

void QueuedPictures::ask(Request request)
{
    m_newest = request.pictures;
    if (!m_running)
        return start(std::move(request));
    if (m_waiting)
        request.callers += m_waiting->callers;
    m_waiting = std::move(request);
}

void QueuedPictures::start(Request request)
{
    m_running = std::move(request);
    Q_EMIT started();
}

void QueuedPictures::answer(const QStringList& failures)
{
    const int callers = std::exchange(m_running, std::nullopt)->callers;
    if (m_waiting)
        start(*std::exchange(m_waiting, std::nullopt));
    for (int i = 0; i < callers; ++i)
        Q_EMIT finished(failures);
}

QStringList QueuedPictures::carryOut(const Request& request)
{
    std::vector<DesktopPicture> pictures = request.pictures;
    QStringList failures = removeMissing(pictures);
    if (pictures.empty())
        return failures;
    const std::unique_ptr<PictureBackend> backend = m_find();
    if (backend == nullptr)
        return failures +
               refusals(pictures, QStringLiteral("it is of a kind that has no way to set pictures."));
    const QString before = std::exchange(m_desktop, backend->desktop());
    if (request.callers == 0 && before == m_desktop)
        return failures;
    return failures + backend->apply(pictures, request.which);
}

} // namespace tessel
