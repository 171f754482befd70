// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "plasma/frame_source.h"

#include <QAbstractItemModel>
#include <QPointer>
#include <QQuickItem>

#include <array>
#include <atomic>

namespace tessel {

/// Shows what plays on a screen; nothing while nothing does.
class WallpaperFrames : public QQuickItem
{
    Q_OBJECT
    /// The name of the screen that it is on, as the display server calls it.
    Q_PROPERTY(QString screen READ screen WRITE setScreen NOTIFY screenChanged)
    Q_PROPERTY(bool playing READ isPlaying NOTIFY playingChanged)
    /// The windows on that screen, those that are minimised left out, with the roles that Plasma's tasks
    /// have.
    Q_PROPERTY(QAbstractItemModel* windows READ windows WRITE setWindows NOTIFY windowsChanged)

public:
    explicit WallpaperFrames(QQuickItem* parent = nullptr,
                             const QDBusConnection& bus = QDBusConnection::sessionBus());

    [[nodiscard]] const QString& screen() const { return m_screen; }
    void setScreen(const QString& name);
    [[nodiscard]] bool isPlaying() const { return !m_source.picture().isNull(); }

    [[nodiscard]] QAbstractItemModel* windows() const { return m_windows; }
    void setWindows(QAbstractItemModel* windows);

Q_SIGNALS:
    void screenChanged();
    void windowsChanged();
    void playingChanged();

protected:
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    void followWindow();
    void followSwap();
    void acknowledge();
    void findCovering();

    QString m_screen;
    FrameSource m_source;
    QPointer<QAbstractItemModel> m_windows;
    std::array<int, 2> m_coveringRoles{}; ///< that say of a window that it fills the screen
    bool m_isCovered = false;
    QMetaObject::Connection m_swaps;
    std::atomic<bool> m_isDrawn = false; ///< a frame, which the window has not shown yet
    bool m_isShown = false;              ///< a frame, which has not been acknowledged yet
};

} // namespace tessel
