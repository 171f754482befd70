// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/live_picture.h"

#include "controls/picture_surface.h"
#include "wallpaper/passthrough_view.h"

#include <algorithm>

namespace tessel {

LivePicture::LivePicture(Source source, const SceneServices& services, const Screens& screens)
    : m_source(source)
    , m_services(services)
    , m_screens(screens)
    , m_scene(source, services)
{
    const Store& store = services.store;
    connect(&store, &Store::lookReplaced, this, [this] { m_isReplaced = true; });
    connect(&store, &Store::lookChanged, this, &LivePicture::follow);
    connect(&store, &Store::desktopChanged, this, &LivePicture::follow);
    connect(&store, &Store::appliedMotionChanged, this, &LivePicture::follow);
    connect(&services.session, &Session::changed, this, &LivePicture::refreshPause);
    connect(&m_scene, &Scene::changed, this, [this] {
        m_isReady = true;
        refreshPause();
    });
    connect(&m_scene, &Scene::failed, this, &LivePicture::failed);
}

LivePicture::~LivePicture() = default;

const QImage& LivePicture::image() const
{
    static const QImage none;
    return m_surface != nullptr ? m_surface->image() : none;
}

void LivePicture::setSize(QSize pixels)
{
    if (pixels == m_size)
        return;
    m_size = pixels;
    m_view.reset();
    m_surface.reset();
    if (pixels.isEmpty())
        return;
    m_surface = std::make_unique<PictureSurface>(pixels);
    connect(m_surface.get(), &PictureSurface::drawn, this, &LivePicture::drawn);
    m_view = std::make_unique<PassthroughView>(*m_surface, m_scene, m_services.graphics, reference());
    m_isReady = false;
    show(LookChange::inPlace);
}

void LivePicture::setFrozen(bool frozen)
{
    if (frozen == m_frozen)
        return;
    m_frozen = frozen;
    m_scene.setFrozen(frozen);
    refreshPause();
    Q_EMIT frozenChanged();
}

void LivePicture::setInUse(bool inUse)
{
    m_scene.setThumbState(inUse ? ThumbState::inUse : ThumbState::resting);
    if (m_view != nullptr)
        m_view->restart();
}

void LivePicture::follow()
{
    const bool isReplaced = std::exchange(m_isReplaced, false) || m_source != Source::editor;
    if (m_view != nullptr)
        show(isReplaced ? LookChange::crossFade : LookChange::inPlace);
}

void LivePicture::show(LookChange change)
{
    m_scene.show({m_view->size()}, change);
}

/// What has just been asked for is drawn only once that can be done without a hitch.
void LivePicture::refreshPause()
{
    if (m_view != nullptr)
        m_view->setPaused(!m_isReady || m_services.session.state().unseen());
}

/// By which cells are as large in relation to the picture as on the desktop, and to be seen in the handle.
float LivePicture::reference() const
{
    if (m_source == Source::thumb)
        return thumbReference;
    const std::vector<Screen> screens = m_screens.list();
    const auto primary = std::ranges::find_if(screens, &Screen::isPrimary);
    if (primary == screens.end())
        return desktopReference;
    const auto longer = [](QSize size) { return std::max(size.width(), size.height()); };
    return editorReference(longer(m_size), longer(primary->frame.size()), primary->scale);
}

} // namespace tessel
