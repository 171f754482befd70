// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/screens.h"

#include "platform/linux/x11/x11_connection.h"

#include <QAbstractNativeEventFilter>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QScreen>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <xcb/randr.h>

namespace tessel {

namespace {

/// A monitor that is plugged in reports several changes, one after the other.
constexpr std::chrono::milliseconds settlingTime{150};

/// A connection to an X server that tells of its monitors; nullptr without one.
std::unique_ptr<X11Connection> connectToRandr()
{
    if (QGuiApplication::platformName() != QStringLiteral("xcb"))
        return nullptr;
    auto server = std::make_unique<X11Connection>();
    if (!server->isValid())
        return nullptr;
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(server->get(), &xcb_randr_id);
    if (extension == nullptr || extension->present == 0)
        return nullptr;
    // It has to be told what we understand before it tells anything.
    std::free(
        xcb_randr_query_version_reply(server->get(), xcb_randr_query_version(server->get(), 1, 5), nullptr));
    return server;
}

/// Whether a size in pixels is what Qt makes of it: points are whole numbers, so at a fractional scale the
/// way there and back can end beside it.
bool isRounded(QSize pixels, QSize byQt)
{
    return std::abs(pixels.width() - byQt.width()) <= 1 && std::abs(pixels.height() - byQt.height()) <= 1;
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
        const bool isOfOne = type == m_first + XCB_RANDR_NOTIFY;
        // A backlight, for one, is a property.
        const bool isProperty = isOfOne && static_cast<xcb_randr_notify_event_t*>(message)->subCode ==
                                               XCB_RANDR_NOTIFY_OUTPUT_PROPERTY;
        if (type == m_first + XCB_RANDR_SCREEN_CHANGE_NOTIFY || (isOfOne && !isProperty))
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

QtScreens::QtScreens() : m_settling(new QTimer(this)), m_server(connectToRandr())
{
    m_settling->setSingleShot(true);
    m_settling->setInterval(settlingTime);
    connect(m_settling, &QTimer::timeout, this, [this] {
        readMonitors();
        Q_EMIT changed();
    });

    if (m_server != nullptr) {
        const auto first = xcb_get_extension_data(m_server->get(), &xcb_randr_id)->first_event;
        new RandrEvents(first, *m_settling, this);
    }
    readMonitors();
    for (const QScreen* screen : QGuiApplication::screens())
        watch(screen);
    const auto restart = qOverload<>(&QTimer::start);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &QtScreens::watch);
    connect(qGuiApp, &QGuiApplication::screenAdded, m_settling, restart);
    connect(qGuiApp, &QGuiApplication::screenRemoved, m_settling, restart);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, m_settling, restart);
}

QtScreens::~QtScreens() = default;

std::vector<Screen> QtScreens::list() const
{
    std::vector<Screen> screens;
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (isPlaceholder(*screen, m_server != nullptr))
            continue;
        Screen& listed =
            screens.emplace_back(Screen{screen->name(), screen->geometry(), screen->devicePixelRatio()});
        const auto monitor = std::ranges::find_if(m_monitors, [&](const QRect& pixels) {
            return pixels.topLeft() == listed.frame.topLeft() &&
                   isRounded(pixels.size(), listed.pixels().size());
        });
        if (monitor != m_monitors.end() && monitor->size() != listed.pixels().size())
            listed.resolution = monitor->size();
    }
    return screens;
}

void QtScreens::readMonitors()
{
    if (m_server != nullptr)
        m_monitors = monitorPlaces(*m_server);
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
