// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "edge/edge_layout.h"

#include <QObject>
#include <QRectF>
#include <QtQml/qqmlregistration.h>

#include <utility>

namespace tessel {

/// What the panel at the screen's edge shows. The EdgeController changes it, QML draws it.
class EdgeState : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("the application has one")
    Q_PROPERTY(bool isQuick READ isQuick NOTIFY modeChanged)
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY modeChanged)
    Q_PROPERTY(bool hovering READ hovering NOTIFY hoveringChanged)
    Q_PROPERTY(int quickHover READ quickHoverIndex NOTIFY quickHoverChanged)
    Q_PROPERTY(bool isOnRight READ isOnRight NOTIFY layoutChanged)
    Q_PROPERTY(QRectF handleFrame READ handleFrame NOTIFY layoutChanged)
    Q_PROPERTY(QRectF quickFrame READ quickFrame NOTIFY layoutChanged)
    Q_PROPERTY(QRectF editorFrame READ editorFrame NOTIFY layoutChanged)
    Q_PROPERTY(bool isHandleHidden READ isHandleHidden NOTIFY handleHiddenChanged)

public:
    [[nodiscard]] Mode mode() const { return m_mode; }
    [[nodiscard]] bool isQuick() const { return m_mode == Mode::quick; }
    [[nodiscard]] bool isOpen() const { return m_mode == Mode::open; }
    void setMode(Mode mode) { update(m_mode, mode, &EdgeState::modeChanged); }

    /// Whether the pointer is over the handle while there is nothing else.
    [[nodiscard]] bool hovering() const { return m_hovering; }
    void setHovering(bool hovering) { update(m_hovering, hovering, &EdgeState::hoveringChanged); }

    /// The quick action under the pointer; none when it is elsewhere.
    [[nodiscard]] std::optional<int> quickHover() const { return m_quickHover; }
    void setQuickHover(std::optional<int> row) { update(m_quickHover, row, &EdgeState::quickHoverChanged); }
    /// The same for QML: -1 for none.
    [[nodiscard]] int quickHoverIndex() const { return m_quickHover.value_or(-1); }

    /// In points, what each mode shows from the panel's top left corner.
    [[nodiscard]] const EdgeLayout& layout() const { return m_layout; }
    void setLayout(const EdgeLayout& layout);
    [[nodiscard]] int panelHeight() const { return m_layout.panelHeight(); }
    [[nodiscard]] bool isOnRight() const { return m_layout.edge == Edge::right; }
    [[nodiscard]] QRectF handleFrame() const { return m_layout.contentFrame(Mode::handle); }
    [[nodiscard]] QRectF quickFrame() const { return m_layout.contentFrame(Mode::quick); }
    [[nodiscard]] QRectF editorFrame() const { return m_layout.contentFrame(Mode::open); }

    /// Whether the user wants no handle.
    [[nodiscard]] bool isHandleHidden() const { return m_isHandleHidden; }
    void setHandleHidden(bool hidden) { update(m_isHandleHidden, hidden, &EdgeState::handleHiddenChanged); }

Q_SIGNALS:
    void modeChanged();
    void hoveringChanged();
    void quickHoverChanged();
    void layoutChanged();
    void handleHiddenChanged();

private:
    template<typename Value>
    void update(Value& field, const Value& value, void (EdgeState::*changed)())
    {
        if (std::exchange(field, value) != value)
            Q_EMIT(this->*changed)();
    }

    Mode m_mode = Mode::handle;
    bool m_hovering = false;
    std::optional<int> m_quickHover;
    EdgeLayout m_layout;
    bool m_isHandleHidden = false;
};

} // namespace tessel
