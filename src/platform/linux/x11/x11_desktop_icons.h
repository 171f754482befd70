// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/worker.h"

#include <QRect>
#include <QString>

#include <optional>
#include <xcb/xcb.h>

namespace tessel {

class X11IconWatch;

/// Leaves free in a window of ours what another program draws on the desktop below it besides the picture:
/// the icons, wherever they are and whatever they look like. All work is done on a thread of its own.
class X11DesktopIcons
{
public:
    /// \param window ours
    /// \param place of it among the pixels of the whole desktop
    X11DesktopIcons(xcb_window_t window, QRect place);
    ~X11DesktopIcons();

    X11DesktopIcons(const X11DesktopIcons&) = delete;
    X11DesktopIcons& operator=(const X11DesktopIcons&) = delete;

    /// From now on the window has holes where the desktop differs from its picture. They stay as they are
    /// while most of it does, as before the desktop has taken the picture.
    /// \param desktop the window below; XCB_WINDOW_NONE leaves nothing free
    /// \param picture file of the window's size that the desktop shows, or is about to
    void watch(xcb_window_t desktop, const QString& picture);

    /// Looks no longer. The holes stay as they are.
    void rest();

private:
    const xcb_window_t m_window;
    const QRect m_place;
    std::optional<Worker> m_worker;  ///< there once there has been something to watch
    X11IconWatch* m_watch = nullptr; ///< lives on its thread, which deletes it
};

} // namespace tessel
