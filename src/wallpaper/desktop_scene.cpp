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
    m_isEmpty = false;
}

void DesktopScene::follow(std::vector<QSize> sizes)
{
    const Look look = wanted();
    const CrossFade fade{m_isEmpty ? look : m_current, look};
    if (isPrepared(fade, sizes)) {
        show(look, m_store.desktopTransitionStart());
        return;
    }
    const int photoSide = m_encoder.photos().longestSide();
    m_preparer.prepare(fade, sizes, photoSide, [this, fade, sizes](const std::vector<PreparedPhoto>& photos) {
        m_makeCurrent();
        for (const PreparedPhoto& photo : photos)
            m_encoder.photos().add(photo.path, photo.image);
        build({fade.current, fade.current}, sizes);
        // The old look moves on in between.
        QTimer::singleShot(0, this, [this, fade, sizes] { finish(fade, sizes); });
    });
}

/// Builds what the preparer has left in the driver's cache.
void DesktopScene::build(const CrossFade& fade, const std::vector<QSize>& sizes)
{
    if (fade.current != wanted())
        return;
    m_makeCurrent();
    for (const QSize size : sizes)
        m_encoder.prepare(frameInside(fade, size));
}

void DesktopScene::finish(const CrossFade& fade, const std::vector<QSize>& sizes)
{
    build(fade, sizes);
    if (fade.current == wanted())
        show(fade.current, mediaTime());
}

void DesktopScene::show(const Look& look, double since)
{
    if (m_isEmpty || look != m_current) {
        m_previous = m_isEmpty ? look : m_current;
        m_current = look;
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
            .edge = m_store.edge()};
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
