// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "edge/edge_state.h"
#include "platform/window_system.h"

#include <QQuickView>
#include <QVariant>

#include <memory>

namespace tessel {

/// The window at the screen's edge: QML in a panel that lets through every click that is not for what it
/// shows.
class EdgePanel : public QObject
{
    Q_OBJECT

public:
    /// \param engine must outlive this, as must the system
    /// \param properties those that EdgeRoot.qml requires
    /// \return nullptr where no windows float
    static std::unique_ptr<EdgePanel> make(WindowSystem& windows, QQmlEngine& engine,
                                           const QVariantMap& properties);
    ~EdgePanel() override;

    /// Where it is among all screens, in points.
    void place(const QRect& frame);

    /// Shows it, and what takes clicks of it, from its top left corner; nothing hides it.
    void setActive(const QRect& frame);

    void setKeyboardFocus(KeyboardFocus focus);

    [[nodiscard]] QQuickView& view() { return m_view; }

Q_SIGNALS:
    /// The pointer is over the active part.
    /// \param position from the panel's top left corner
    void pointerMoved(QPoint position);
    void pointerLeft();
    /// Something was pressed that is no window of ours, or this one.
    /// \param position among all screens
    void pressed(QPoint position);
    void handleClicked();
    /// The other button was pressed on the handle.
    void menuRequested();
    void closeRequested();

private:
    explicit EdgePanel(QQmlEngine& engine) : m_view(&engine, nullptr) {}
    bool open(WindowSystem& windows, const QVariantMap& properties);
    void updateShape();
    Q_SLOT void shapesChanged() { updateShape(); }

    QQuickView m_view;
    std::unique_ptr<PanelWindow> m_panel;
    std::unique_ptr<PointerFeed> m_pointer;
};

} // namespace tessel
