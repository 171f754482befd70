// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "onboarding/onboarding.h"
#include "platform/focus.h"

#include <QQmlEngine>
#include <QQuickView>

namespace tessel {

class LookPictures;

/// The window of the introduction, in the middle of the screen and above ordinary windows. Everything that it
/// draws with goes with it.
class OnboardingWindow : public QObject
{
    Q_OBJECT

public:
    /// \param onboarding finished when the window is closed; must outlive this, as must the others
    /// \param focus may be nullptr
    OnboardingWindow(Onboarding& onboarding, LookPictures& pictures, Focus* focus);
    ~OnboardingWindow() override;

    /// Takes the size that it should have there, once the screen has changed, or what a point is.
    void fitScreen();

    /// Brings it to the front, with the focus.
    void bringForward();

    [[nodiscard]] QQuickView& view() { return m_view; }

Q_SIGNALS:
    void quitRequested();

private:
    void setFrame(const QRect& frame);
    bool eventFilter(QObject* watched, QEvent* event) override;

    Onboarding& m_onboarding;
    LookPictures& m_pictures;
    Focus* const m_focus;
    QQmlEngine m_engine;
    QQuickView m_view;
    bool m_isSeen = false; ///< it has been, and got the focus
};

} // namespace tessel
