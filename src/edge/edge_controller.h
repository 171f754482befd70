// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "edge/edge_state.h"
#include "model/store.h"
#include "platform/window_system.h"

#include <QDeadlineTimer>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>

namespace tessel {

class EdgePanel;

/// How long the strip of quick actions waits.
struct EdgeDelays
{
    std::chrono::milliseconds hover{150};    ///< of the pointer's resting on the handle until the strip opens
    std::chrono::milliseconds click{400};    ///< after that, a click still means what the hover has done
    std::chrono::milliseconds collapse{900}; ///< after the pointer has left it
};

/// Makes the panel that the controller shows in.
using MakeEdgePanel = std::function<std::unique_ptr<EdgePanel>(EdgeState& state)>;

/// The handle at the screen's edge, and what opens from it: it places the panel, follows the pointer, and
/// decides which mode there is. There is one. Without windows that float there is none to be seen, and it
/// only keeps its mode.
class EdgeController : public QObject
{
    Q_OBJECT

public:
    /// All must outlive this.
    EdgeController(Store& store, WindowSystem& windows, MakeEdgePanel makePanel, EdgeDelays delays = {});
    ~EdgeController() override;

    [[nodiscard]] EdgeState& state() { return m_state; }
    [[nodiscard]] Mode mode() const { return m_state.mode(); }

    /// Whether there is a panel to be seen.
    [[nodiscard]] bool isInstalled() const { return m_panel != nullptr; }

    /// Whether install() can show one.
    [[nodiscard]] bool canInstall() const { return m_windows.hasPanelWindows(); }

    /// Shows the panel and obeys the pointer from now on; does nothing the second time.
    void install();

    /// Takes the panel away, and with it the QML that shows what others own.
    void uninstall();

    void setMode(Mode mode);

    /// What a click on the handle does.
    void clickHandle();

    /// Opens the strip for a while, without the pointer.
    void peek(std::chrono::milliseconds duration);

    /// While something is open that belongs to what the panel shows, a menu or a file dialog, that stays as
    /// it is, wherever the pointer is and clicks.
    void setHeld(bool held);

    /// While a menu is open in the panel, all of the panel takes clicks, and the keyboard.
    void setMenuOpen(bool isOpen);

    /// A content frame among all screens, in points.
    [[nodiscard]] QRect screenFrame(Mode mode) const;

Q_SIGNALS:
    void modeChanged();
    /// The program's menu is to open where the pointer is, on the handle.
    void menuRequested();

private:
    void place();
    void updateKeyboard();
    void update();
    void follow(QPoint position);
    void clickOutside(QPoint position);
    void collapse();
    [[nodiscard]] bool isInside() const;
    [[nodiscard]] bool isPeeking() const;

    Store& m_store;
    WindowSystem& m_windows;
    const MakeEdgePanel m_makePanel;
    const EdgeDelays m_delays;
    EdgeState m_state;
    std::unique_ptr<EdgePanel> m_panel;
    std::optional<QPoint> m_pointer; ///< in the panel, while it is over that
    QTimer m_hoverWork;
    QTimer m_collapseWork;
    QTimer m_peekEnd;
    QDeadlineTimer m_hoverOpened;  ///< until when a click means what the hover has done
    bool m_pointerEntered = false; ///< it has been inside the strip since that opened
    bool m_isHeld = false;
    bool m_isMenuOpen = false;
};

} // namespace tessel
