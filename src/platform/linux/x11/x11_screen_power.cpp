// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/x11/x11_screen_power.h"

#include "platform/linux/x11/x11_connection.h"

#include <QTimer>

#include <chrono>
#include <xcb/xcbext.h>

namespace tessel {

namespace {

constexpr std::chrono::seconds interval{2};

} // namespace

X11ScreenPower::X11ScreenPower(X11Connection& connection, X11Events& events)
    : m_asking(new QTimer(this))
    , m_connection(connection)
{
    m_asking->setInterval(interval);
    m_asking->setTimerType(Qt::VeryCoarseTimer);
    connect(m_asking, &QTimer::timeout, this, &X11ScreenPower::ask);
    connect(&events, &X11Events::drained, this, &X11ScreenPower::readAnswer);
}

X11ScreenPower::~X11ScreenPower() = default;

void X11ScreenPower::addWatcher()
{
    // Not every server can switch monitors off.
    if (++m_watchers > 1 || !hasExtension(m_connection.get(), xcb_dpms_id))
        return;
    m_asking->start();
    ask();
}

void X11ScreenPower::removeWatcher()
{
    if (--m_watchers > 0)
        return;
    m_asking->stop();
    setOff(false);
}

void X11ScreenPower::ask()
{
    // It may have come together with one that somebody waited for.
    readAnswer();
    if (m_question.has_value())
        return;
    m_question = xcb_dpms_info(m_connection.get());
    xcb_flush(m_connection.get());
}

void X11ScreenPower::readAnswer()
{
    if (!m_connection.isValid()) {
        m_asking->stop();
        setOff(false);
        return;
    }
    void* answer = nullptr;
    if (!m_question.has_value() ||
        xcb_poll_for_reply(m_connection.get(), m_question->sequence, &answer, nullptr) == 0)
        return;
    m_question.reset();
    const XcbPointer<xcb_dpms_info_reply_t> reply(static_cast<xcb_dpms_info_reply_t*>(answer));
    if (m_asking->isActive() && reply != nullptr)
        setOff(reply->state != 0 && reply->power_level != XCB_DPMS_DPMS_MODE_ON);
}

void X11ScreenPower::setOff(bool off)
{
    if (off == m_off)
        return;
    m_off = off;
    Q_EMIT changed();
}

} // namespace tessel
