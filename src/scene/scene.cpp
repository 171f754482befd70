// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "scene/scene.h"

#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <stdexcept>

namespace tessel {

Scene::Scene(Source source, const SceneServices& services) : m_source(source), m_services(services) {}

const Look& Scene::wanted() const
{
    const Store& store = m_services.store;
    return m_source != Source::editor && store.desktop() ? *store.desktop() : store.look();
}

bool Scene::isPrepared(const CrossFade& fade, const std::vector<ViewSize>& views) const
{
    const FrameEncoder& encoder = m_services.graphics.encoder();
    return std::ranges::all_of(
        views, [&](const ViewSize& view) { return encoder.isPrepared(frameInside(fade, view)); });
}

void Scene::adopt()
{
    m_previous = m_current = wanted();
    m_previousEdge = m_edge = m_services.store.edge();
    m_isEmpty = false;
}

void Scene::show(const std::vector<ViewSize>& views, LookChange change)
{
    const Look look = wanted();
    const CrossFade fade{m_isEmpty ? look : m_current, look};
    try {
        m_services.graphics.makeCurrent();
        m_isPreparing = !isPrepared(fade, views);
    } catch (const std::runtime_error& error) {
        fail(look, QString::fromUtf8(error.what()));
        return;
    }
    if (!m_isPreparing) {
        take(look, change);
        return;
    }
    prepare(fade, views, [this, look, change] {
        if (look == wanted())
            take(look, change);
    });
}

void Scene::anticipate(const Look& look, const std::vector<ViewSize>& views)
{
    const CrossFade fade{m_current, look};
    try {
        if (!m_isPreparing && !isPrepared(fade, views))
            prepare(fade, views, [] {});
    } catch (const DrawingError&) {
        // It is told when the look is to be shown.
    }
}

/// In three steps: on another thread what takes long, and then here, with time for a frame in between, what
/// that has left in the driver's cache.
void Scene::prepare(const CrossFade& fade, const std::vector<ViewSize>& views, std::function<void()> done)
{
    const auto buildHere = [guard = QPointer<Scene>(this), this, fade, views,
                            done = std::move(done)](const std::vector<PreparedPhoto>& photos) {
        if (!guard || !build({fade.current, fade.current}, views, photos))
            return;
        QTimer::singleShot(0, this, [this, fade, views, done] {
            if (build(fade, views))
                done();
        });
    };
    m_services.preparer.prepare(m_source, withoutKnownPhotos(fade), views,
                                m_services.graphics.encoder().photos().longestSide(), buildHere);
}

/// The same cross-fade, without the photos that need not be read again.
CrossFade Scene::withoutKnownPhotos(CrossFade fade) const
{
    for (Look* look : {&fade.previous, &fade.current})
        if (look->imagePath && m_services.graphics.encoder().photos().holds(*look->imagePath))
            look->imagePath.reset();
    return fade;
}

/// \return false if it cannot be drawn, which is told if it is the wanted look
bool Scene::build(const CrossFade& fade, const std::vector<ViewSize>& views,
                  const std::vector<PreparedPhoto>& photos)
{
    try {
        m_services.graphics.makeCurrent();
        FrameEncoder& encoder = m_services.graphics.encoder();
        for (const PreparedPhoto& photo : photos)
            encoder.photos().add(photo.path, photo.image);
        for (const ViewSize& view : views)
            encoder.prepare(frameInside(fade, view));
        return true;
    } catch (const std::runtime_error& error) {
        if (m_isPreparing && fade.current == wanted())
            fail(fade.current, QString::fromUtf8(error.what()));
        return false;
    }
}

void Scene::take(const Look& look, LookChange change)
{
    m_isPreparing = false;
    m_hasGivenUp = false;
    if (m_isEmpty || look != m_current) {
        const bool fades = change == LookChange::crossFade;
        if (m_isEmpty || fades) {
            m_previous = m_isEmpty ? look : m_current;
            m_previousEdge = m_isEmpty ? m_services.store.edge() : m_edge;
        }
        if (!m_isEmpty && fades)
            m_transitionStart = m_services.store.mediaTime();
        m_current = look;
        m_edge = m_services.store.edge();
        m_isEmpty = false;
    }
    Q_EMIT changed();
}

Scene::Pace Scene::pace(int ceiling, double now) const
{
    const SessionState& session = m_services.session.state();
    const double age = now - m_transitionStart;
    switch (m_source) {
    case Source::editor:
        return EditorPace{.speed = m_current.speed, .frozen = m_frozen, .transitionAge = age};
    case Source::thumb:
        return ThumbPace{.speed = m_current.speed,
                         .preference =
                             session.reducedMotion ? MotionPreference::reduced : MotionPreference::full,
                         .state = thumbState(now)};
    case Source::desktop:
        break;
    }
    return DesktopPace{.speed = m_current.speed,
                       .animated = m_services.store.appliedMotion(),
                       .transitionAge = age,
                       .ceiling = ceiling,
                       .cap = session.onBattery ? std::optional(batteryFramesPerSecond) : std::nullopt};
}

void Scene::advance(double now)
{
    const double speed = std::visit([](const auto& each) { return clockSpeed(each); }, pace(0, now));
    m_services.clocks.advance(m_source, speed, now);
}

Frame Scene::frame(const ViewSize& view, double now) const
{
    const auto preference =
        m_services.session.state().reducedMotion ? MotionPreference::reduced : MotionPreference::full;
    return {.previous = m_previous,
            .current = m_current,
            .width = view.pixels.width(),
            .height = view.pixels.height(),
            .mix = transitionMix(now - m_transitionStart, preference),
            .time = m_services.clocks.phase(m_source),
            .reference = view.reference,
            .edge = m_edge,
            .previousEdge = m_previousEdge};
}

int Scene::framesPerSecond(int ceiling, double now) const
{
    if (m_hasGivenUp)
        return 0;
    const Pace current = pace(ceiling, now);
    // A slider of exactly 0 stops the pattern, and a still desktop does; then there is no next frame.
    const double speed = std::visit([](const auto& each) { return clockSpeed(each); }, current);
    if (m_source == Source::desktop && speed == 0.0 && now - m_transitionStart >= transitionDuration)
        return 0;
    if (m_source == Source::thumb && isThumbAtRest(speed, now))
        return 0;
    return std::visit([](const auto& each) { return tessel::framesPerSecond(each); }, current);
}

/// Beside a desktop that does not move the handle only does while it is looked at.
bool Scene::isThumbAtRest(double speed, double now) const
{
    const ThumbState state = thumbState(now);
    return state == ThumbState::hidden || speed == 0.0 ||
           (state == ThumbState::resting && !m_services.store.appliedMotion());
}

/// Looks cross-fade in it as if it were looked at: it would stay at the one before.
ThumbState Scene::thumbState(double now) const
{
    const bool isFading = now - m_transitionStart < transitionDuration;
    return isFading && m_thumbState == ThumbState::resting ? ThumbState::inUse : m_thumbState;
}

void Scene::giveUp(const QString& problem)
{
    if (!std::exchange(m_hasGivenUp, true))
        fail(m_current, problem);
}

void Scene::fail(const Look& look, const QString& problem)
{
    m_isPreparing = false;
    // What cannot be drawn cannot be faded from either.
    m_isEmpty = m_isEmpty || look == m_current;
    Q_EMIT failed(problem);
}

} // namespace tessel
