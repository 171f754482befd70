// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/store.h"
#include "platform/session.h"
#include "render/graphics.h"
#include "scene/animation_clocks.h"
#include "scene/frame_pacing.h"
#include "scene/look_preparer.h"

#include <functional>
#include <variant>

namespace tessel {

/// What scenes work with; all of it must outlive them.
struct SceneServices
{
    const Store& store;
    const Session& session;
    Graphics& graphics;
    AnimationClocks& clocks;
    LookPreparer& preparer;
};

/// Whether a new look is faded to or takes the place of the old one, as under a slider.
enum class LookChange : std::uint8_t
{
    crossFade,
    inPlace
};

/// What the live views of a source show: its look, the one it is cross-faded from, and where the animation
/// is. The store says which look is wanted; here the old one moves on until that can be drawn without a
/// hitch.
class Scene : public QObject
{
    Q_OBJECT

public:
    Scene(Source source, const SceneServices& services);

    /// Takes what the store has now for what the views show already.
    void adopt();

    /// Shows what the store has now on views of these sizes as soon as it can be drawn, which `changed`
    /// tells.
    void show(const std::vector<ViewSize>& views, LookChange change = LookChange::crossFade);

    /// Whether what show() was asked for is still being made ready.
    [[nodiscard]] bool isPreparing() const { return m_isPreparing; }

    /// Makes ready for a look that may come next, so that show() will not have to wait for it.
    void anticipate(const Look& look, const std::vector<ViewSize>& views);

    /// What the views show, and the handle's side that it is drawn for.
    [[nodiscard]] const Look& current() const { return m_current; }
    [[nodiscard]] Edge edge() const { return m_edge; }

    /// Stops the editor's animation, or lets it go on.
    void setFrozen(bool frozen) { m_frozen = frozen; }
    /// How much the handle is looked at.
    void setThumbState(ThumbState state) { m_thumbState = state; }

    /// Moves the animation on to `now`, in seconds of media time.
    void advance(double now);

    /// What a view of this size shows now; its looks are valid until the scene changes.
    [[nodiscard]] Frame frame(const ViewSize& view, double now) const;

    /// How fast a view is to draw, given what its renderer can carry. 0 while nothing can move.
    [[nodiscard]] int framesPerSecond(int ceiling, double now) const;

    /// To be told by a view that could not draw it. Nothing is drawn until the next look.
    void giveUp(const QString& problem);

Q_SIGNALS:
    /// What show() was asked for is shown: it is time to draw.
    void changed();
    /// The look cannot be drawn: what was shown before stays.
    void failed(const QString& problem);

private:
    using Pace = std::variant<EditorPace, DesktopPace, ThumbPace>;

    [[nodiscard]] const Look& wanted() const;
    [[nodiscard]] Pace pace(int ceiling, double now) const;
    [[nodiscard]] bool isThumbAtRest(double speed, double now) const;
    [[nodiscard]] ThumbState thumbState(double now) const;
    [[nodiscard]] bool isPrepared(const CrossFade& fade, const std::vector<ViewSize>& views) const;
    void prepare(const CrossFade& fade, const std::vector<ViewSize>& views, std::function<void()> done);
    [[nodiscard]] CrossFade withoutKnownPhotos(CrossFade fade) const;
    [[nodiscard]] bool build(const CrossFade& fade, const std::vector<ViewSize>& views,
                             const std::vector<PreparedPhoto>& photos = {});
    void take(const Look& look, LookChange change);
    void fail(const Look& look, const QString& problem);

    const Source m_source;
    const SceneServices m_services;
    Look m_previous;
    Look m_current;
    Edge m_previousEdge = Edge::left; ///< the handle's side that each of them is drawn for
    Edge m_edge = Edge::left;
    double m_transitionStart = -2 * transitionDuration; ///< in media time
    bool m_isEmpty = true;                              ///< nothing has been shown yet
    bool m_isPreparing = false;
    bool m_hasGivenUp = false;
    bool m_frozen = false;
    ThumbState m_thumbState = ThumbState::resting;
};

} // namespace tessel
