// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_pointer_feed.h"

#include "platform/linux/x11/x11_connection.h"

#include <QCursor>
#include <QMouseEvent>
#include <QTimer>

#include <chrono>
#include <xcb/xinput.h>

namespace tessel {

namespace {

constexpr std::uint32_t leftButton = 1;
constexpr std::uint32_t rightButton = 3;
/// Until Qt has told of the same press. It reads its own connection on a thread of its own.
constexpr std::chrono::milliseconds qtsTurn{50};

} // namespace

X11PointerFeed::X11PointerFeed(X11Connection& connection, X11Events& events, QWindow& window)
    : WindowPointerFeed(window)
    , m_connection(connection)
{
    if (!hasExtension(connection.get(), xcb_input_id))
        return;
    m_extension = xcb_get_extension_data(connection.get(), &xcb_input_id)->major_opcode;
    // It serves nobody who has not asked which version it speaks.
    static_cast<void>(readReply(xcb_input_xi_query_version_reply, connection.get(),
                                xcb_input_xi_query_version(connection.get(), 2, 2)));
    choose(XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS);
    connect(&events, &X11Events::received, this, &X11PointerFeed::handle);
}

X11PointerFeed::~X11PointerFeed()
{
    if (m_extension != 0)
        choose(0);
}

void X11PointerFeed::choose(std::uint32_t events)
{
    struct
    {
        xcb_input_event_mask_t header;
        std::uint32_t mask;
    } chosen{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, events};
    xcb_input_xi_select_events(m_connection.get(), m_connection.root(), 1, &chosen.header);
    xcb_flush(m_connection.get());
}

void X11PointerFeed::handle(const xcb_generic_event_t& event)
{
    if ((event.response_type & 0x7F) != XCB_GE_GENERIC)
        return;
    const auto& general = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
    if (general.extension != m_extension)
        return;
    const auto& button = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event);
    if (general.event_type == XCB_INPUT_RAW_BUTTON_PRESS &&
        (button.detail == leftButton || button.detail == rightButton)) {
        // It comes without a place, and the pointer may have moved on since. Of a press on our window Qt
        // tells the place, perhaps only after this, with the same time.
        QTimer::singleShot(qtsTurn, this, [this, time = button.time, now = QCursor::pos()] {
            Q_EMIT pressed(m_latestPress.time == time ? m_latestPress.position : now);
        });
    }
}

bool X11PointerFeed::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        const auto& press = static_cast<const QMouseEvent&>(*event);
        m_latestPress = {press.timestamp(), press.globalPosition().toPoint()};
    }
    return WindowPointerFeed::eventFilter(watched, event);
}

} // namespace tessel
