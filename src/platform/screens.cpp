// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/screens.h"

#include "platform/linux/x11_connection.h"

#include <QAbstractNativeEventFilter>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QScreen>
#include <QTimer>

#include <chrono>
#include <string_view>

namespace tessel {

namespace {

/// A monitor that is plugged in reports several changes, one after the other.
constexpr std::chrono::milliseconds settlingTime{150};

/// The number of the first of the RandR extension's events; 0 without X or without the extension.
std::uint8_t firstRandrEvent()
{
    static constexpr std::string_view extension = "RANDR";
    if (QGuiApplication::platformName() != QStringLiteral("xcb"))
        return 0;
    const X11Connection connection;
    if (!connection.isValid())
        return 0;
    const auto cookie =
        xcb_query_extension(connection.get(), static_cast<std::uint16_t>(extension.size()), extension.data());
    const XcbPointer<xcb_query_extension_reply_t> reply(
        xcb_query_extension_reply(connection.get(), cookie, nullptr));
    return reply != nullptr && reply->present != 0 ? reply->first_event : std::uint8_t{0};
}

/// Restarts a timer on every RandR event that Qt gets: it tells nobody that the last monitor went.
class RandrEvents : public QObject, public QAbstractNativeEventFilter
{
public:
    RandrEvents(std::uint8_t first, QTimer& timer, QObject* parent)
        : QObject(parent)
        , m_first(first)
        , m_timer(timer)
    {
        qGuiApp->installNativeEventFilter(this);
    }

    bool nativeEventFilter(const QByteArray& /*eventType*/, void* message, qintptr* /*result*/) override
    {
        static constexpr std::uint8_t sentByClient = 0x80;
        const int type = static_cast<xcb_generic_event_t*>(message)->response_type & ~sentByClient;
        // There are two: of the whole, and of one output.
        if (type == m_first || type == m_first + 1)
            m_timer.start();
        return false;
    }

private:
    int m_first;
    QTimer& m_timer;
};

/// Whether Qt merely fills in for a missing monitor: with nothing, or on X11 with a screen that is as large
/// as the last one, but named after the display (":0.0") and not after an output.
bool isPlaceholder(const QScreen& screen, bool hasPlaceholders)
{
    static const QRegularExpression displayName(QStringLiteral(":\\d+\\.\\d+$"));
    return screen.geometry().isEmpty() || (hasPlaceholders && displayName.match(screen.name()).hasMatch());
}

} // namespace

QtScreens::QtScreens() : m_settling(new QTimer(this))
{
    m_settling->setSingleShot(true);
    m_settling->setInterval(settlingTime);
    connect(m_settling, &QTimer::timeout, this, &Screens::changed);

    if (const std::uint8_t first = firstRandrEvent(); first != 0) {
        m_hasPlaceholders = true;
        new RandrEvents(first, *m_settling, this);
    }
    for (const QScreen* screen : QGuiApplication::screens())
        watch(screen);
    const auto restart = qOverload<>(&QTimer::start);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &QtScreens::watch);
    connect(qGuiApp, &QGuiApplication::screenAdded, m_settling, restart);
    connect(qGuiApp, &QGuiApplication::screenRemoved, m_settling, restart);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, m_settling, restart);
}

std::vector<Screen> QtScreens::list() const
{
    std::vector<Screen> screens;
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (!isPlaceholder(*screen, m_hasPlaceholders))
            screens.push_back({screen->name(), screen->geometry(), screen->devicePixelRatio()});
    }
    return screens;
}

void QtScreens::watch(const QScreen* screen)
{
    const auto restart = qOverload<>(&QTimer::start);
    connect(screen, &QScreen::geometryChanged, m_settling, restart);
    // Qt tells a new scale only by the resolution that follows from it.
    connect(screen, &QScreen::logicalDotsPerInchChanged, m_settling, restart);
    connect(screen, &QScreen::physicalDotsPerInchChanged, m_settling, restart);
}

} // namespace tessel
