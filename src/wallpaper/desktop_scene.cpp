// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "wallpaper/desktop_scene.h"

#include <QTimer>

#include <algorithm>

namespace tessel {

DesktopScene::DesktopScene(const Store& store, const Session& session, FrameEncoder& encoder,
                           std::function<void()> makeCurrent)
    : m_store(store)
    , m_session(session)
    , m_encoder(encoder)
    , m_makeCurrent(std::move(makeCurrent))
{
}

const Look& DesktopScene::wanted() const
{
    return m_store.desktop() ? *m_store.desktop() : m_store.look();
}

bool DesktopScene::isPrepared(const CrossFade& fade, const std::vector<QSize>& sizes) const
{
    return std::ranges::all_of(sizes,
                               [&](QSize size) { return m_encoder.isPrepared(frameInside(fade, size)); });
}

void DesktopScene::settle()
{
    m_previous = m_current = wanted();
    m_previousEdge = m_edge = m_store.edge();
    m_isEmpty = false;
}

void DesktopScene::follow(const std::vector<QSize>& sizes)
{
    const Look look = wanted();
    const CrossFade fade{m_isEmpty ? look : m_current, look};
    m_isFollowing = !isPrepared(fade, sizes);
    if (!m_isFollowing) {
        show(look, look == m_current ? mediaTime() : m_store.desktopTransitionStart());
        return;
    }
    prepare(fade, sizes, [this, look] {
        if (look == wanted())
            show(look, mediaTime());
    });
}

void DesktopScene::anticipate(const Look& look, const std::vector<QSize>& sizes)
{
    const CrossFade fade{m_current, look};
    if (!m_isFollowing && !isPrepared(fade, sizes))
        prepare(fade, sizes, [] {});
}

/// In three steps: on another thread what takes long, and then here, with time for a frame in between, what
/// that has left in the driver's cache.
void DesktopScene::prepare(const CrossFade& fade, const std::vector<QSize>& sizes, std::function<void()> done)
{
    const auto buildHere = [this, fade, sizes,
                            done = std::move(done)](const std::vector<PreparedPhoto>& photos) {
        m_makeCurrent();
        for (const PreparedPhoto& photo : photos)
            m_encoder.photos().add(photo.path, photo.image);
        build({fade.current, fade.current}, sizes);
        QTimer::singleShot(0, this, [this, fade, sizes, done] {
            build(fade, sizes);
            done();
        });
    };
    m_preparer.prepare(withoutKnownPhotos(fade), sizes, m_encoder.photos().longestSide(), buildHere);
}

/// The same cross-fade, without the photos that need not be read again.
CrossFade DesktopScene::withoutKnownPhotos(CrossFade fade) const
{
    for (Look* look : {&fade.previous, &fade.current})
        if (look->imagePath && m_encoder.photos().holds(*look->imagePath))
            look->imagePath.reset();
    return fade;
}

void DesktopScene::build(const CrossFade& fade, const std::vector<QSize>& sizes)
{
    m_makeCurrent();
    for (const QSize size : sizes)
        m_encoder.prepare(frameInside(fade, size));
}

void DesktopScene::show(const Look& look, double since)
{
    m_isFollowing = false;
    if (m_isEmpty || look != m_current || m_edge != m_store.edge()) {
        m_previous = m_isEmpty ? look : m_current;
        m_previousEdge = m_isEmpty ? m_store.edge() : m_edge;
        m_current = look;
        m_edge = m_store.edge();
        m_since = since;
        m_isEmpty = false;
    }
    Q_EMIT changed();
}

DesktopPace DesktopScene::pace(double now) const
{
    return {.speed = m_current.speed,
            .animated = m_store.appliedMotion(),
            .transitionAge = now - m_since,
            .cap = m_session.state().onBattery ? std::optional(batteryFramesPerSecond) : std::nullopt};
}

void DesktopScene::advance(double now)
{
    m_clocks.advance(Source::desktop, clockSpeed(pace(now)), now);
}

Frame DesktopScene::frame(QSize size, double now) const
{
    const auto preference =
        m_session.state().reducedMotion ? MotionPreference::reduced : MotionPreference::full;
    return {.previous = m_previous,
            .current = m_current,
            .width = size.width(),
            .height = size.height(),
            .mix = transitionMix(now - m_since, preference),
            .time = m_clocks.phase(Source::desktop),
            .edge = m_edge,
            .previousEdge = m_previousEdge};
}

int DesktopScene::framesPerSecond(int ceiling, double now) const
{
    DesktopPace current = pace(now);
    current.ceiling = ceiling;
    // A slider of exactly 0 stops the pattern; then there is no next frame to wait for.
    if (clockSpeed(current) == 0.0 && current.transitionAge >= transitionDuration)
        return 0;
    return tessel::framesPerSecond(current);
}

} // namespace tessel
