// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/desktops/queued_pictures.h"

#include "platform/linux/desktops/desktop_calls.h"

#include <QDBusConnection>
#include <QFileInfo>

#include <algorithm>

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
        failures << QueuedPictures::tr("There is no picture for %1: the file %2 is gone.")
                        .arg(picture.screen.name, picture.file);
        return true;
    });
    return failures;
}

QStringList apply(PictureBackend& backend, const std::vector<DesktopPicture>& pictures,
                  PictureBackend::Which which)
{
    try {
        return backend.apply(pictures, which);
    } catch (const DesktopError& error) {
        return refusals(pictures, error.reason);
    }
}

/// A desktop that does not answer is taken to show what it was given.
bool shows(PictureBackend& backend, const std::vector<DesktopPicture>& pictures)
{
    try {
        return backend.shows(pictures);
    } catch (const DesktopError&) {
        return true;
    }
}

} // namespace

QueuedPictures::QueuedPictures(QString desktop, Find find, std::chrono::milliseconds patience)
    : m_find(std::move(find))
    , m_desktop(std::move(desktop))
{
    m_absence.setSingleShot(true);
    m_absence.setInterval(patience);
    connect(&m_absence, &QTimer::timeout, this, &QueuedPictures::start);
    if (m_desktop.isEmpty())
        m_absence.start();
    m_drawing.setSingleShot(true);
    m_drawing.setInterval(std::chrono::seconds(2));
    connect(&m_drawing, &QTimer::timeout, this, &QueuedPictures::lookAgain);
    connect(&m_services, &QDBusServiceWatcher::serviceOwnerChanged, &m_drawing, qOverload<>(&QTimer::start));
}

void QueuedPictures::set(const std::vector<DesktopPicture>& pictures)
{
    ask({pictures, PictureBackend::Which::all});
}

void QueuedPictures::restore(const std::vector<DesktopPicture>& pictures)
{
    ask({pictures, PictureBackend::Which::different});
}

void QueuedPictures::lookAgain()
{
    if (m_waiting)
        start();
    else
        ask({m_newest, PictureBackend::Which::different, 0});
}

void QueuedPictures::watch(const QDBusConnection& bus, const QStringList& services)
{
    m_services.setConnection(bus);
    m_services.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    m_services.setWatchedServices(services);
    m_owner = std::make_unique<X11DesktopOwnerWatch>();
    connect(m_owner.get(), &X11DesktopOwnerWatch::changed, &m_drawing, qOverload<>(&QTimer::start));
    connect(m_owner.get(), &X11DesktopOwnerWatch::pictureChanged, &m_drawing, qOverload<>(&QTimer::start));
    QDBusConnection session = bus;
    session.connect(QString(), QStringLiteral("/org/xfce/Xfconf"), QStringLiteral("org.xfce.Xfconf"),
                    QStringLiteral("PropertyChanged"), {QStringLiteral("xfce4-desktop")}, QString(), this,
                    SLOT(settingsChanged()));
    session.connect(QString(), QStringLiteral("/PlasmaShell"), QStringLiteral("org.kde.PlasmaShell"),
                    QStringLiteral("wallpaperChanged"), this, SLOT(settingsChanged()));
    session.connect(QString(), QStringLiteral("/ca/desrt/dconf/Writer/user"),
                    QStringLiteral("ca.desrt.dconf.Writer"), QStringLiteral("Notify"), this,
                    SLOT(dconfChanged(QString, QStringList)));
}

void QueuedPictures::settingsChanged()
{
    m_drawing.start();
}

/// Of all settings only those of the background matter.
void QueuedPictures::dconfChanged(const QString& prefix, const QStringList& keys)
{
    const auto matters = [&prefix](const QString& key) {
        return QString(prefix + key).contains(QLatin1String("/background/"));
    };
    if (std::ranges::any_of(keys, matters))
        m_drawing.start();
}

void QueuedPictures::ask(Request request)
{
    m_newest = request.pictures;
    if (m_waiting)
        request.callers += m_waiting->callers;
    m_waiting = std::move(request);
    start();
}

/// What waits, unless something is under way.
void QueuedPictures::start()
{
    if (m_running || !m_waiting)
        return;
    m_running = std::exchange(m_waiting, std::nullopt);
    m_running->before = m_desktop;
    m_running->wasTaken = m_wasTaken;
    m_worker.run([this, request = *m_running] { return carryOut(request); },
                 [this, request = *m_running](const Outcome<Answer>& outcome) {
                     answer(outcome.value.value_or(
                         Answer{m_desktop, refusals(request.pictures, outcome.failure + QLatin1Char('.'))}));
                 });
}

/// Nobody is told yet; a newer one is answered for both.
void QueuedPictures::putBack(const Request& request)
{
    if (m_waiting)
        m_waiting->callers += request.callers;
    else
        m_waiting = request;
}

void QueuedPictures::answer(const Answer& answer)
{
    const bool isOther = std::exchange(m_desktop, answer.desktop) != answer.desktop;
    const Request request = *std::exchange(m_running, std::nullopt);
    if (m_desktop.isEmpty() && isOther)
        m_absence.start();
    const bool isAwaited = m_desktop.isEmpty() && m_absence.isActive() && request.callers > 0;
    if (isAwaited)
        putBack(request);
    if (answer.wasTold || isOther)
        m_wasTaken = answer.wasTold && answer.failures.isEmpty();
    // A newer request goes before what somebody else wants.
    const bool isReplaced = answer.isReplaced && !m_waiting;
    if (isReplaced)
        m_newest.clear();
    if (!isAwaited)
        start();
    if (isOther)
        Q_EMIT desktopChanged();
    for (int i = 0; i < request.callers && !isAwaited; ++i)
        Q_EMIT finished(answer.failures);
    if (isReplaced)
        Q_EMIT replaced();
}

/// For the thread.
QueuedPictures::Answer QueuedPictures::carryOut(const Request& request) const
{
    const std::unique_ptr<PictureBackend> backend = m_find();
    Answer answer;
    answer.desktop = backend == nullptr ? QString() : backend->desktop();
    std::vector<DesktopPicture> pictures = request.pictures;
    if (request.callers == 0 && (request.before == answer.desktop || pictures.empty())) {
        answer.isReplaced =
            request.wasTaken && backend != nullptr && !pictures.empty() && !shows(*backend, pictures);
        return answer;
    }
    answer.failures = removeMissing(pictures);
    if (backend == nullptr)
        //: "it" is the desktop; behind a colon
        answer.failures += refusals(pictures, tr("it is of a kind that has no way to set pictures."));
    else if (!pictures.empty())
        answer.failures += apply(*backend, pictures, request.which);
    answer.wasTold = backend != nullptr;
    return answer;
}

} // namespace tessel
