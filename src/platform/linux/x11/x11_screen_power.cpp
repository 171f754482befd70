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

X11ScreenPower::X11ScreenPower(QObject* parent) : QObject(parent), m_asking(new QTimer(this))
{
    m_asking->setInterval(interval);
    m_asking->setTimerType(Qt::VeryCoarseTimer);
    connect(m_asking, &QTimer::timeout, this, &X11ScreenPower::ask);
}

X11ScreenPower::~X11ScreenPower() = default;

void X11ScreenPower::setWatching(bool watching)
{
    if (watching == m_asking->isActive())
        return;
    if (!watching) {
        m_asking->stop();
        setOff(false);
        return;
    }
    if (!open())
        return;
    m_asking->start();
    ask();
}

/// \return whether there is a server that can switch monitors off
bool X11ScreenPower::open()
{
    if (m_connection == nullptr) {
        m_connection = std::make_unique<X11Connection>();
        if (m_connection->isValid()) {
            m_events = std::make_unique<X11Events>(*m_connection);
            connect(m_events.get(), &X11Events::drained, this, &X11ScreenPower::readAnswer);
        }
    }
    if (!m_connection->isValid())
        return false;
    const auto* extension = xcb_get_extension_data(m_connection->get(), &xcb_dpms_id);
    return extension != nullptr && extension->present != 0;
}

void X11ScreenPower::ask()
{
    if (m_question.has_value())
        return;
    m_question = xcb_dpms_info(m_connection->get());
    xcb_flush(m_connection->get());
}

void X11ScreenPower::readAnswer()
{
    if (!m_connection->isValid()) {
        m_asking->stop();
        setOff(false);
        return;
    }
    void* answer = nullptr;
    if (!m_question.has_value() ||
        xcb_poll_for_reply(m_connection->get(), m_question->sequence, &answer, nullptr) == 0)
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
    Q_EMIT offChanged(off);
}

} // namespace tessel
