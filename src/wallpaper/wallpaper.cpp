// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/wallpaper.h"

#include "base/identity.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QStandardPaths>

#include <algorithm>

namespace tessel {

namespace {

int longestSide(const std::vector<Screen>& screens)
{
    int longest = 0;
    for (const Screen& screen : screens) {
        const QSize size = screen.pixels().size();
        longest = std::max({longest, size.width(), size.height()});
    }
    return longest;
}

} // namespace

QString defaultWallpaperFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QLatin1Char('/') +
           identity::folder + QStringLiteral("/Wallpapers");
}

Wallpaper::Wallpaper(const WallpaperEnvironment& environment)
    : m_environment(environment)
    , m_scene(Source::desktop, {environment.store, environment.session, environment.graphics,
                                environment.clocks, environment.preparer})
    , m_live(environment.windows, m_scene, environment.graphics)
    , m_stills(environment.store, environment.graphics, environment.pictures, environment.folder)
{
    m_stillDelay.setSingleShot(true);
    m_appearing.setSingleShot(true);
    m_appearing.setInterval(m_environment.delays.appearing);
    connect(&m_stillDelay, &QTimer::timeout, this, [this] {
        // It would take the windows away before the look has been seen in them.
        if (m_scene.isPreparing())
            m_stillDelay.start();
        else
            makeStill();
    });
    connect(&m_appearing, &QTimer::timeout, this, [this] { m_live.hide(); });
    connect(&m_scene, &Scene::changed, this, &Wallpaper::showLive);
    connect(&m_scene, &Scene::failed, this, &Wallpaper::lookFailed);
    connect(&m_stills, &DesktopStills::made, this, &Wallpaper::stillMade);
    connect(&m_stills, &DesktopStills::failed, this, &Wallpaper::stillFailed);
    connect(&m_stills, &DesktopStills::handedOver, this, &Wallpaper::stillHandedOver);
    connect(&m_stills, &DesktopStills::found, this, &Wallpaper::stillFound);
    connect(&m_stills, &DesktopStills::missing, this, &Wallpaper::stillMissing);
    connect(&m_environment.pictures, &DesktopPictures::desktopChanged, this, &Wallpaper::desktopChanged);
    connect(&m_environment.pictures, &DesktopPictures::replaced, this, &Wallpaper::pictureReplaced);
    connect(&m_environment.windows.screens(), &Screens::changed, this, &Wallpaper::screensChanged);
    const Session& session = m_environment.session;
    connect(&session, &Session::changed, this,
            [this] { m_live.setSeen(!m_environment.session.state().unseen()); });
    connect(&session, &Session::aboutToSleep, this, &Wallpaper::keepPhase);
    connect(&session, &Session::woke, this, &Wallpaper::wake);
    m_live.setSeen(!session.state().unseen());
    m_environment.graphics.setLongestScreen(longestSide(screens()));
}

void Wallpaper::start()
{
    restorePhase();
    const std::optional<Look>& look = m_environment.store.desktop();
    if (!look)
        return;
    m_scene.adopt();
    if (m_environment.store.appliedMotion())
        showLook();
    m_stills.find(*look, screens());
}

void Wallpaper::apply(ContinueFromEditor continuing)
{
    restorePhase();
    AnimationClocks& clocks = m_environment.clocks;
    if (continuing == ContinueFromEditor::yes && m_environment.store.desktop())
        clocks.setPhase(Source::desktop, clocks.phase(Source::editor));
    keepPhase();
    m_stills.cancel();
    m_failedLook.reset();
    showLook();
    scheduleStill();
}

void Wallpaper::stop()
{
    finishStill();
    m_scene.disconnect(this);
    m_stillDelay.stop();
    m_stills.cancel();
    keepPhase();
    m_live.hide();
}

void Wallpaper::savePng(const Look& look, QSize size, const QString& file,
                        std::function<void(std::optional<QString> failure)> done)
{
    m_stills.savePng({look, m_environment.clocks.phase(Source::desktop), m_environment.store.edge()}, size,
                     file, std::move(done));
}

/// Once: later the clock itself knows better.
void Wallpaper::restorePhase()
{
    if (!std::exchange(m_phaseRestored, true))
        m_environment.clocks.setPhase(Source::desktop, m_environment.store.desktopPhase());
}

void Wallpaper::keepPhase()
{
    m_environment.store.setDesktopPhase(m_environment.clocks.phase(Source::desktop));
}

/// Of what the screens show.
StillRecipe Wallpaper::recipe(const Look& look) const
{
    return {look, m_environment.clocks.phase(Source::desktop), m_scene.edge()};
}

std::vector<ViewSize> Wallpaper::sizes() const
{
    std::vector<ViewSize> sizes;
    for (const Screen& screen : screens())
        sizes.push_back({screen.pixels().size()});
    return sizes;
}

void Wallpaper::showLook()
{
    m_live.setScreens(screens());
    m_appearing.stop();
    m_scene.show(sizes());
}

/// The windows come up only now: until a new look can be drawn, what was there before is better. Where the
/// desktop takes no pictures they stay away: there would be nothing to tell its icons by, which they would
/// hide.
void Wallpaper::showLive()
{
    if (m_environment.pictures.canSet())
        m_live.play();
    // The cross-fade begins only now, and what is to come after it waits for its end.
    if (m_stillDelay.isActive())
        m_stillDelay.start();
}

void Wallpaper::desktopChanged()
{
    if (!m_environment.pictures.canSet())
        m_live.hide();
    else if (m_environment.store.desktop() && m_environment.store.appliedMotion())
        showLook();
}

/// Somebody wants to see another picture than ours, and would not while ours plays in front of it.
void Wallpaper::pictureReplaced()
{
    if (!m_live.arePlaying())
        return;
    m_stillDelay.stop();
    m_stills.cancel();
    keepPhase();
    m_live.hide();
    m_environment.store.leaveDesktop();
}

void Wallpaper::screensChanged()
{
    const std::vector<Screen> now = screens();
    m_environment.graphics.setLongestScreen(longestSide(now));
    if (!m_environment.store.desktop())
        return;
    // Where they are the same, windows that are about to be hidden still are.
    if (m_live.arePlaying() && !m_live.areOn(now))
        showLook();
    if (!m_waitsForScreen && m_stills.areFor(now))
        return;
    m_stills.cancel();
    scheduleStill();
}

void Wallpaper::wake()
{
    m_live.restart();
    if (m_environment.store.desktop() && !isStillComing())
        m_stills.find(*m_environment.store.desktop(), screens());
}

/// Behind an animation the still waits, unless the desktop shows what is not ours: only in front of a picture
/// that is known can icons be left free.
void Wallpaper::scheduleStill()
{
    const bool waits = m_environment.store.appliedMotion() && m_stills.areShownOn(screens());
    m_stillDelay.start(waits ? m_environment.delays.animated : m_environment.delays.still);
}

/// Whether a picture is to be made, or is being made, that the desktop or our windows will be given.
bool Wallpaper::isStillComing() const
{
    return m_stillDelay.isActive() || m_stills.isMaking();
}

void Wallpaper::makeStill()
{
    m_waitsForScreen = screens().empty();
    if (!m_waitsForScreen && m_environment.store.desktop())
        m_stills.make(recipe(*m_environment.store.desktop()), screens());
}

/// Without our windows the desktop would show the picture of an earlier look.
void Wallpaper::finishStill()
{
    if (m_stillDelay.isActive()) {
        m_stillDelay.stop();
        makeStill();
    }
    const QDeadlineTimer limit(m_environment.delays.leaving);
    QTimer::singleShot(m_environment.delays.leaving, this, [] {});
    QEventLoop loop;
    while ((m_stills.isMaking() || m_stills.isHandingOver()) && !limit.hasExpired())
        loop.processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
}

void Wallpaper::stillMade()
{
    tellMissingPhoto();
    m_environment.windows.leaveIconsFree(m_stills.latest());
    m_scene.anticipate(m_environment.store.upcoming(), sizes());
}

void Wallpaper::stillHandedOver(const QStringList& failures)
{
    if (isStillComing())
        return;
    if (!failures.isEmpty())
        Q_EMIT stillFailed(failures.join(QLatin1Char('\n')));
    if (!m_environment.store.appliedMotion() && m_live.arePlaying())
        m_appearing.start();
}

/// The pictures made last are there and of the look: the desktop is to show them.
void Wallpaper::stillFound()
{
    if (isStillComing() || !m_environment.store.desktop())
        return;
    m_environment.windows.leaveIconsFree(m_stills.latest());
    m_scene.anticipate(m_environment.store.upcoming(), sizes());
    m_stills.restore();
}

/// They are gone, or of another look because the program was ended too early.
void Wallpaper::stillMissing()
{
    if (isStillComing() || !m_environment.store.desktop() || m_environment.store.desktop() == m_failedLook)
        return;
    showLook();
    scheduleStill();
}

void Wallpaper::tellMissingPhoto()
{
    const Look& look = *m_environment.store.desktop();
    const std::string path = look.pattern == Pattern::image ? look.imagePath.value_or("") : "";
    const std::string problem = m_environment.graphics.encoder().photos().problem(path);
    if (!problem.empty())
        Q_EMIT photoMissing(
            QStringLiteral("%1: %2").arg(QString::fromStdString(path), QString::fromStdString(problem)));
}

/// What is on the screens stays there: a still of the look could not be drawn either.
void Wallpaper::lookFailed(const QString& problem)
{
    m_failedLook = m_environment.store.desktop();
    m_stillDelay.stop();
    m_stills.cancel();
    Q_EMIT stillFailed(problem);
}

} // namespace tessel
