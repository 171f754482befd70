// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/wallpaper.h"

namespace tessel {

Wallpaper::Wallpaper(const WallpaperEnvironment& environment)
    : m_environment(environment)
    , m_scene(Source::desktop, {environment.store, environment.session, environment.graphics,
                                environment.clocks, environment.preparer})
    , m_live(m_environment, m_scene)
    , m_maker(environment.graphics, environment.folder)
    , m_stills(m_environment, m_scene, m_maker)
{
    m_environment.clocks.setPhase(Source::desktop, m_environment.store.desktopPhase());
    connect(&m_scene, &Scene::changed, this, &Wallpaper::playLive);
    connect(&m_stills, &DesktopStills::ready, this, &Wallpaper::stillsReady);
    connect(&m_stills, &DesktopStills::missing, this, &Wallpaper::stillsMissing);
    connect(&m_stills, &DesktopStills::handedOver, this, &Wallpaper::stillsHandedOver);
    connect(&m_stills, &DesktopStills::failed, this, &Wallpaper::stillFailed);
    connect(&m_stills, &DesktopStills::photoMissing, this, &Wallpaper::photoMissing);
    connect(&m_environment.pictures, &DesktopPictures::desktopChanged, this, &Wallpaper::desktopChanged);
    connect(&m_environment.pictures, &DesktopPictures::replaced, this, &Wallpaper::pictureReplaced);
    connect(&m_environment.session, &Session::aboutToSleep, this, &Wallpaper::keepPhase);
    connect(&m_environment.session, &Session::woke, &m_stills, &DesktopStills::find);
}

void Wallpaper::start()
{
    if (!m_environment.store.desktop())
        return;
    m_scene.adopt();
    if (m_environment.store.appliedMotion())
        m_live.show();
    m_stills.find();
}

void Wallpaper::apply(ContinueFromEditor continuing)
{
    AnimationClocks& clocks = m_environment.clocks;
    if (continuing == ContinueFromEditor::yes && m_environment.store.desktop())
        clocks.setPhase(Source::desktop, clocks.phase(Source::editor));
    keepPhase();
    m_live.show();
    m_stills.schedule();
}

void Wallpaper::rest()
{
    if (m_live.arePlaying())
        return;
    m_environment.graphics.rest();
    if (m_environment.store.desktop())
        anticipate();
}

/// Has what the next new wallpaper needs made ready.
void Wallpaper::anticipate()
{
    m_scene.anticipate(m_environment.store.upcoming(), m_live.sizes());
}

void Wallpaper::stop()
{
    m_stills.finish();
    m_scene.disconnect();
    m_stills.cancel();
    keepPhase();
    m_live.hide();
}

void Wallpaper::keepPhase()
{
    m_environment.store.setDesktopPhase(m_environment.clocks.phase(Source::desktop));
}

/// The windows come up only now: until a new look can be drawn, what was there before is better. Where the
/// desktop takes no pictures they stay away: there would be nothing to tell its icons by, which they would
/// hide.
void Wallpaper::playLive()
{
    if (m_environment.pictures.canSet())
        m_live.play();
}

void Wallpaper::desktopChanged()
{
    if (!m_environment.pictures.canSet())
        m_live.hide();
    else if (m_environment.store.desktop() && m_environment.store.appliedMotion())
        m_live.show();
}

/// Somebody wants to see another picture than ours, and would not while ours plays in front of it.
void Wallpaper::pictureReplaced()
{
    if (!m_live.arePlaying())
        return;
    m_stills.cancel();
    keepPhase();
    m_live.hide();
    m_environment.store.leaveDesktop();
}

void Wallpaper::stillsReady()
{
    m_environment.windows.leaveIconsFree(m_stills.latest());
    anticipate();
}

/// They are gone, or of another look because the program was ended too early.
void Wallpaper::stillsMissing()
{
    m_live.show();
    m_stills.schedule();
}

void Wallpaper::stillsHandedOver()
{
    if (!m_environment.store.appliedMotion() && m_live.arePlaying())
        m_live.hideLater();
}

} // namespace tessel
