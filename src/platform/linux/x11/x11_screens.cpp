// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_screens.h"

#include "platform/linux/x11/x11_connection.h"

#include <QGuiApplication>
#include <QRegularExpression>

#include <algorithm>
#include <cstdlib>
#include <xcb/randr.h>

namespace tessel {

namespace {

/// Whether a size in pixels is what Qt makes of it: points are whole numbers, so at a fractional scale the
/// way there and back can end beside it.
bool isRounded(QSize pixels, QSize byQt)
{
    return std::abs(pixels.width() - byQt.width()) <= 1 && std::abs(pixels.height() - byQt.height()) <= 1;
}

/// Whether Qt merely fills in for a missing monitor: with a screen that is as large as the last one, but
/// named after the display (":0.0") and not after an output.
bool isPlaceholder(const Screen& screen)
{
    static const QRegularExpression displayName(QStringLiteral(":\\d+\\.\\d+$"));
    return displayName.match(screen.name).hasMatch();
}

} // namespace

X11Screens::X11Screens(X11Connection& connection) : QtScreens(Layout::pixels), m_connection(connection)
{
    xcb_connection_t* const server = connection.get();
    if (!hasExtension(server, xcb_randr_id))
        return;
    // It has to be told what we understand before it tells anything.
    static_cast<void>(
        readReply(xcb_randr_query_version_reply, server, xcb_randr_query_version(server, 1, 5)));
    m_firstEvent = xcb_get_extension_data(server, &xcb_randr_id)->first_event;
    m_monitors = monitorPlaces(m_connection);
    qGuiApp->installNativeEventFilter(this);
}

std::vector<Screen> X11Screens::list() const
{
    std::vector<Screen> screens = QtScreens::list();
    if (!m_firstEvent)
        return screens;
    std::erase_if(screens, isPlaceholder);
    for (Screen& screen : screens) {
        const QRect byQt = screen.pixels();
        const auto monitor = std::ranges::find_if(m_monitors, [&](const QRect& pixels) {
            return pixels.topLeft() == byQt.topLeft() && isRounded(pixels.size(), byQt.size());
        });
        if (monitor != m_monitors.end() && monitor->size() != byQt.size())
            screen.resolution = monitor->size();
    }
    return screens;
}

void X11Screens::update()
{
    if (m_firstEvent)
        m_monitors = monitorPlaces(m_connection);
}

/// Qt, which gets these events, tells nobody that the last monitor went.
bool X11Screens::nativeEventFilter(const QByteArray& /*eventType*/, void* message, qintptr* /*result*/)
{
    static constexpr std::uint8_t sentByClient = 0x80;
    const int type = static_cast<xcb_generic_event_t*>(message)->response_type & ~sentByClient;
    const bool isOfOne = type == *m_firstEvent + XCB_RANDR_NOTIFY;
    // A backlight, for one, is a property.
    const bool isProperty = isOfOne && static_cast<xcb_randr_notify_event_t*>(message)->subCode ==
                                           XCB_RANDR_NOTIFY_OUTPUT_PROPERTY;
    if (type == *m_firstEvent + XCB_RANDR_SCREEN_CHANGE_NOTIFY || (isOfOne && !isProperty))
        noteChange();
    return false;
}

} // namespace tessel
