// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/store.h"
#include "platform/session.h"
#include "render/frame_encoder.h"
#include "render/frame_pacing.h"
#include "wallpaper/look_preparer.h"

#include <QSize>

#include <functional>

namespace tessel {

/// What all screens show of the desktop: its look, the one it is cross-faded from, and where the animation
/// is. It follows the store, but lets the old look move on until the new one can be drawn without a hitch.
class DesktopScene : public QObject
{
    Q_OBJECT

public:
    /// All but `makeCurrent`, which makes an OpenGL context current, must outlive the scene.
    DesktopScene(const Store& store, const Session& session, FrameEncoder& encoder,
                 std::function<void()> makeCurrent);

    /// Takes what the store has on the desktop now for what the screens show already.
    void settle();

    /// Shows what the store has on the desktop now, on screens of these pixel sizes: cross-faded to as soon
    /// as it can be drawn, which `changed` tells.
    void follow(const std::vector<QSize>& sizes);

    /// Whether what follow() was asked for is still being made ready.
    [[nodiscard]] bool isFollowing() const { return m_isFollowing; }

    /// Makes ready for a look that may come next, so that follow() will not have to wait for it.
    void anticipate(const Look& look, const std::vector<QSize>& sizes);

    /// Moves the animation on to `now`, in seconds of media time.
    void advance(double now);

    /// What a screen of this size shows now; its looks are valid until the scene changes.
    [[nodiscard]] Frame frame(QSize size, double now) const;

    /// How fast a screen is to draw, given what its renderer can carry. 0 while nothing can move.
    [[nodiscard]] int framesPerSecond(int ceiling, double now) const;

    [[nodiscard]] AnimationClocks& clocks() { return m_clocks; }

Q_SIGNALS:
    /// What follow() was asked for is shown: it is time to draw.
    void changed();

private:
    [[nodiscard]] const Look& wanted() const;
    [[nodiscard]] DesktopPace pace(double now) const;
    [[nodiscard]] bool isPrepared(const CrossFade& fade, const std::vector<QSize>& sizes) const;
    void prepare(const CrossFade& fade, const std::vector<QSize>& sizes, std::function<void()> done);
    [[nodiscard]] CrossFade withoutKnownPhotos(CrossFade fade) const;
    void build(const CrossFade& fade, const std::vector<QSize>& sizes);
    void show(const Look& look, double since);

    const Store& m_store;
    const Session& m_session;
    FrameEncoder& m_encoder;
    std::function<void()> m_makeCurrent;
    LookPreparer m_preparer;
    AnimationClocks m_clocks;
    Look m_previous;
    Look m_current;
    Edge m_previousEdge = Edge::left; ///< the handle's side that each of them is drawn for
    Edge m_edge = Edge::left;
    double m_since = -2 * transitionDuration; ///< media time at which the cross-fade began
    bool m_isEmpty = true;                    ///< nothing has been shown yet
    bool m_isFollowing = false;               ///< a look is being made ready to be shown
};

} // namespace tessel
