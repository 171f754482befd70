// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11_focus.h"

#include <QGuiApplication>

#include <algorithm>

namespace tessel {

namespace {

/// Says that the user wants it, as pagers do: other requests may be taken for stealing the focus.
constexpr std::uint32_t fromUser = 2;

constexpr std::uint32_t allWorkspaces = 0xFFFFFFFF;

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

void X11Focus::showEverywhere(WId window)
{
    askManager(window, "_NET_WM_DESKTOP", {allWorkspaces, fromUser});
}

void X11Focus::askManager(WId window, const std::string& request, const std::array<std::uint32_t, 2>& items)
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

std::unique_ptr<Focus> makeFocus()
{
    if (QGuiApplication::platformName() != QStringLiteral("xcb"))
        return nullptr;
    auto focus = std::make_unique<X11Focus>();
    return focus->isValid() ? std::move(focus) : nullptr;
}

} // namespace tessel
