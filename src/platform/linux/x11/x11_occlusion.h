// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/linux/x11/x11_connection.h"

#include <QObject>
#include <QRegion>

#include <map>
#include <memory>
#include <vector>

class QTimer;

namespace tessel {

struct X11OcclusionAtoms;

/// What covers the desktop, from the windows that the window manager lists. Their order does not matter: all
/// but windows of the desktop's own type lie above ours. Reacts to the server's events and never asks
/// without one.
class X11Occlusion : public QObject
{
    Q_OBJECT

public:
    /// \param connection must outlive this
    /// \param events of that connection
    X11Occlusion(X11Connection& connection, X11Events& events);
    ~X11Occlusion() override;

    /// Whether nothing of the desktop can be seen within a rectangle of its pixels. `changed` will tell when
    /// the answer for this rectangle is another one, and only then.
    [[nodiscard]] bool isCovered(const QRect& pixels) const;

    /// Whether a window that fills a screen lies over some of a rectangle of the desktop's pixels.
    [[nodiscard]] bool isFilled(const QRect& pixels) const { return m_filled.intersects(pixels); }

    /// Whether a compositing manager blends windows with what lies behind them.
    [[nodiscard]] bool isBlending() const { return m_compositor != XCB_WINDOW_NONE; }

Q_SIGNALS:
    void changed();
    /// Windows fill other parts of the desktop than before.
    void filledChanged();
    void blendingChanged();

private:
    /// What is known of a window.
    struct Window
    {
        bool isKnown = false;        ///< false: what follows has to be asked for anew
        QRegion whole;               ///< what it takes of the screen; empty while it is not shown
        QRegion opaque;              ///< what of that nothing shines through while windows are blended
        bool isFullScreen = false;   ///< it fills a screen, and panels make room for it
        std::uint32_t workspace = 0; ///< or everyWorkspace
    };

    /// What was asked about a rectangle lately.
    struct Answer
    {
        QRect pixels;
        bool isCovered = false;
    };

    class Question;

    void handle(const xcb_generic_event_t& event);
    void handleProperty(xcb_window_t window, xcb_atom_t atom);
    void forget(xcb_window_t window);
    void forgetAll();
    void schedule();

    void refresh();
    void askRoot();
    void followList(const std::vector<std::uint32_t>& listed);
    [[nodiscard]] xcb_window_t askCompositor() const;
    void followCompositor();
    void askWindows();
    void addUp();
    [[nodiscard]] bool computeCovered(const QRect& pixels) const;

    X11Connection& m_connection;
    std::unique_ptr<X11OcclusionAtoms> m_atoms;
    int m_shapeEvent = 0; ///< the number of the event that a window has a new shape
    QTimer* m_pending;    ///< runs from the first event until what it means is looked at

    std::map<xcb_window_t, Window> m_windows;
    std::uint32_t m_workspace = 0;
    bool m_isShowingDesktop = false;
    xcb_window_t m_compositor = XCB_WINDOW_NONE; ///< blends windows, while there is one
    QRegion m_covered;
    QRegion m_filled;
    mutable std::vector<Answer> m_answers;
};

} // namespace tessel
