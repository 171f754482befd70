// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_focus.h"
#include "support/surroundings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Windows on the second workspace, whose window manager is played.
class X11FocusTest : public testing::Test
{
protected:
    X11FocusTest()
    {
        const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_server.get(), m_server.root(), XCB_CW_EVENT_MASK, &events);
        set(m_server.root(), "_NET_CURRENT_DESKTOP", XCB_ATOM_CARDINAL, 1);
    }

    void set(xcb_window_t window, const char* name, xcb_atom_t type, std::uint32_t value)
    {
        m_server.setProperty(window, name, type, {&value, 1});
        m_server.sync();
    }

    xcb_window_t makeWindow(std::uint32_t workspace)
    {
        const xcb_window_t window = xcb_generate_id(m_server.get());
        xcb_create_window(m_server.get(), XCB_COPY_FROM_PARENT, window, m_server.root(), 0, 0, 9, 9, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        set(window, "WM_STATE", m_server.atom("WM_STATE"), 1);
        set(window, "_NET_WM_DESKTOP", XCB_ATOM_CARDINAL, workspace);
        return window;
    }

    /// The windows for which the manager has been asked for something.
    std::vector<xcb_window_t> asked(const char* request)
    {
        static_cast<void>(m_focus.current());
        m_server.sync();
        std::vector<xcb_window_t> windows;
        while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(m_server.get())}) {
            const auto* message = reinterpret_cast<const xcb_client_message_event_t*>(event.get());
            if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE &&
                message->type == m_server.atom(request))
                windows.push_back(message->window);
        }
        return windows;
    }

    VirtualDisplay m_display;
    X11Connection m_server;
    X11Connection m_ours;
    X11Focus m_focus{m_ours};
};

TEST_F(X11FocusTest, GoesBackOnlyToWhatIsInSight)
{
    const xcb_window_t here = makeWindow(1);
    const xcb_window_t everywhere = makeWindow(0xFFFFFFFF);
    for (const xcb_window_t window : {here, everywhere})
        m_focus.giveBack(window);
    EXPECT_THAT(asked("_NET_ACTIVE_WINDOW"), ElementsAre(here, everywhere));

    const xcb_window_t gone = makeWindow(1);
    xcb_destroy_window(m_server.get(), gone);
    set(here, "_NET_WM_STATE", XCB_ATOM_ATOM, m_server.atom("_NET_WM_STATE_HIDDEN"));
    for (const xcb_window_t window : {here, makeWindow(0), gone})
        m_focus.giveBack(window);
    EXPECT_THAT(asked("_NET_ACTIVE_WINDOW"), IsEmpty());
}

} // namespace
} // namespace tessel
