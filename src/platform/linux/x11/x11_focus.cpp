// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_focus.h"

#include <algorithm>

namespace tessel {

namespace {

/// Says that the user wants it, as pagers do: other requests may be taken for stealing the focus.
constexpr std::uint32_t fromUser = 2;

constexpr std::uint32_t allWorkspaces = 0xFFFFFFFF;

/// The request to add a state to a window.
constexpr std::uint32_t addState = 1;

} // namespace

WId X11Focus::current()
{
    const auto windows = m_connection.property(m_connection.root(), "_NET_ACTIVE_WINDOW", XCB_ATOM_WINDOW);
    return windows.empty() ? 0 : windows.front();
}

void X11Focus::give(WId window)
{
    askManager(window, "_NET_ACTIVE_WINDOW", {fromUser});
}

void X11Focus::giveBack(WId window)
{
    // Window managers would go to its workspace, or bring it here, and take it out of the task bar.
    if (isInSight(static_cast<xcb_window_t>(window)))
        give(window);
}

void X11Focus::makePanel(WId window)
{
    askManager(window, "_NET_WM_DESKTOP", {allWorkspaces, fromUser});
    askManager(window, "_NET_WM_STATE",
               {addState, m_connection.atom("_NET_WM_STATE_SKIP_TASKBAR"),
                m_connection.atom("_NET_WM_STATE_SKIP_PAGER"), fromUser});
}

bool X11Focus::isInSight(xcb_window_t window)
{
    // Of a window that is gone there are no properties; every one that is managed has this.
    if (m_connection.property(window, "WM_STATE", m_connection.atom("WM_STATE")).empty())
        return false;
    const auto states = m_connection.property(window, "_NET_WM_STATE", XCB_ATOM_ATOM);
    if (std::ranges::find(states, m_connection.atom("_NET_WM_STATE_HIDDEN")) != states.end())
        return false;
    const auto workspace = m_connection.property(window, "_NET_WM_DESKTOP", XCB_ATOM_CARDINAL);
    return workspace.empty() || workspace.front() == allWorkspaces ||
           workspace == m_connection.property(m_connection.root(), "_NET_CURRENT_DESKTOP", XCB_ATOM_CARDINAL);
}

void X11Focus::askManager(WId window, const std::string& request, std::initializer_list<std::uint32_t> items)
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = static_cast<xcb_window_t>(window);
    message.type = m_connection.atom(request);
    std::ranges::copy(items, message.data.data32);
    constexpr std::uint32_t toManager =
        XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_send_event(m_connection.get(), 0, m_connection.root(), toManager,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(m_connection.get());
}

} // namespace tessel
