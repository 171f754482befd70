// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "scene/scene.h"
#include "wallpaper/latest_stills.h"
#include "wallpaper/still_maker.h"
#include "wallpaper/wallpaper_environment.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <optional>
#include <vector>

namespace tessel {

/// The pictures that the desktop shows by itself: decides when they are made of the store's desktop look, and
/// hands them to the desktop.
class DesktopStills : public QObject
{
    Q_OBJECT

public:
    /// All must outlive this. The scene shows the same look live.
    DesktopStills(const WallpaperEnvironment& environment, Scene& scene, StillMaker& maker);

    /// Has a picture made for every screen some time from now. What was under way is given up.
    void schedule();

    /// Gives up what is to be made or being made.
    void cancel();

    /// Makes what is scheduled now, and waits, within the delay for leaving, until the desktop has it:
    /// without our windows it would show the picture of an earlier look.
    void finish();

    /// Looks for the pictures made last. Where they are there and of the store's look, they are `ready` and
    /// the desktop is to show them; else they are `missing`.
    void find();

    [[nodiscard]] const std::vector<DesktopPicture>& latest() const { return m_latest.pictures(); }

Q_SIGNALS:
    /// The latest pictures are there, and the desktop is being given them.
    void ready();
    /// There are none of the store's look.
    void missing();
    /// The desktop has taken the latest pictures, or refused some.
    void handedOver();
    /// They could not be made or were refused; the old ones stay.
    /// \param message why, for people
    void failed(const QString& message);
    /// They show the look without its photo.
    /// \param message why, naming the file
    void photoMissing(const QString& message);

private:
    [[nodiscard]] std::vector<Screen> screens() const { return m_environment.windows.screens().list(); }
    [[nodiscard]] bool areComing() const;
    void followScreens();
    void sceneChanged();
    void sceneFailed(const QString& problem);
    void retryLater(const QString& problem);
    void make();
    void handOver(const std::vector<DesktopPicture>& pictures, const QString& photoProblem);
    void takeFound(bool found);
    void answer(const QStringList& failures);

    const WallpaperEnvironment& m_environment;
    Scene& m_scene;
    StillMaker& m_maker;
    LatestStills m_latest;
    std::optional<Look> m_failedLook; ///< that could not be drawn
    QTimer m_delay;                   ///< until the pictures are made
    QTimer m_retry;                   ///< runs while they cannot be written
    bool m_isFailureTold = false;
    bool m_waitsForScreen = false; ///< they were to be made while there was no screen
    int m_calls = 0;               ///< of the desktop, that it has not answered
};

} // namespace tessel
