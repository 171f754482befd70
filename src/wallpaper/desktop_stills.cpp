// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/desktop_stills.h"

#include <QEventLoop>

namespace tessel {

DesktopStills::DesktopStills(const WallpaperEnvironment& environment, Scene& scene, StillMaker& maker)
    : m_environment(environment)
    , m_scene(scene)
    , m_maker(maker)
    , m_latest(environment.store, maker.writer(), environment.folder)
{
    m_delay.setSingleShot(true);
    connect(&m_delay, &QTimer::timeout, this, [this] {
        // It would take the windows away before the look has been seen in them.
        if (m_scene.isPreparing())
            m_delay.start();
        else
            make();
    });
    m_retry.setSingleShot(true);
    m_retry.setInterval(m_environment.delays.retry);
    connect(&m_retry, &QTimer::timeout, this, &DesktopStills::make);
    connect(&m_scene, &Scene::changed, this, &DesktopStills::sceneChanged);
    connect(&m_scene, &Scene::failed, this, &DesktopStills::sceneFailed);
    connect(&m_maker, &StillMaker::failed, this, &DesktopStills::failed);
    connect(&m_maker, &StillMaker::notWritten, this, &DesktopStills::retryLater);
    connect(&m_maker, &StillMaker::written, this, &DesktopStills::handOver);
    connect(&m_environment.pictures, &DesktopPictures::finished, this, &DesktopStills::answer);
    connect(&m_environment.windows.screens(), &Screens::changed, this, &DesktopStills::followScreens);
}

/// Behind an animation they wait, unless the desktop shows what is not ours: only in front of a picture that
/// is known can icons be left free.
void DesktopStills::schedule()
{
    cancel();
    const bool waits = m_environment.store.appliedMotion() && m_latest.cover(screens());
    m_delay.start(waits ? m_environment.delays.animated : m_environment.delays.still);
}

void DesktopStills::cancel()
{
    m_delay.stop();
    m_retry.stop();
    m_isFailureTold = false;
    m_maker.cancel();
}

void DesktopStills::finish()
{
    if (m_delay.isActive()) {
        m_delay.stop();
        make();
    }
    QTimer limit;
    limit.setSingleShot(true);
    limit.start(m_environment.delays.leaving);
    QEventLoop loop;
    while ((m_maker.isBusy() || m_calls > 0) && limit.isActive())
        loop.processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
}

void DesktopStills::find()
{
    if (m_environment.store.desktop() && !areComing())
        m_latest.find(*m_environment.store.desktop(), screens(), [this](bool found) { takeFound(found); });
}

/// Whether pictures are to be made, or are being made, that the desktop or our windows will be given.
bool DesktopStills::areComing() const
{
    return m_delay.isActive() || m_maker.isBusy();
}

void DesktopStills::followScreens()
{
    if (m_environment.store.desktop() && (m_waitsForScreen || !m_latest.areFor(screens())))
        schedule();
}

void DesktopStills::sceneChanged()
{
    m_failedLook.reset();
    // The cross-fade begins only now, and what is to come after it waits for its end.
    if (m_delay.isActive())
        m_delay.start();
}

/// What is on the screens stays there: a still of the look could not be drawn either.
void DesktopStills::sceneFailed(const QString& problem)
{
    m_failedLook = m_environment.store.desktop();
    cancel();
    Q_EMIT failed(problem);
}

/// A disk may have room again, and is told of once.
void DesktopStills::retryLater(const QString& problem)
{
    m_retry.start();
    if (!std::exchange(m_isFailureTold, true))
        Q_EMIT failed(problem);
}

void DesktopStills::make()
{
    const std::vector<Screen> now = screens();
    const std::optional<Look>& look = m_environment.store.desktop();
    m_waitsForScreen = now.empty();
    if (!now.empty() && look)
        m_maker.request({*look, m_environment.clocks.phase(Source::desktop), m_scene.edge()}, now);
}

void DesktopStills::handOver(const std::vector<DesktopPicture>& pictures, const QString& photoProblem)
{
    m_isFailureTold = false;
    m_latest.set(pictures);
    ++m_calls;
    m_environment.pictures.set(pictures);
    if (!photoProblem.isEmpty())
        Q_EMIT photoMissing(photoProblem);
    Q_EMIT ready();
}

void DesktopStills::takeFound(bool found)
{
    if (areComing() || !m_environment.store.desktop())
        return;
    if (found) {
        Q_EMIT ready();
        ++m_calls;
        m_environment.pictures.restore(latest());
    } else if (m_environment.store.desktop() != m_failedLook) {
        Q_EMIT missing();
    }
}

void DesktopStills::answer(const QStringList& failures)
{
    // A later call has still to be answered: then its answer counts.
    if (--m_calls > 0)
        return;
    if (failures.isEmpty())
        m_latest.prune();
    if (areComing())
        return;
    if (!failures.isEmpty())
        Q_EMIT failed(failures.join(QLatin1Char('\n')));
    Q_EMIT handedOver();
}

} // namespace tessel
